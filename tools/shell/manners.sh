# shellcheck shell=bash
# shellcheck disable=SC2154  # root and command_name are set by the command that sources this
# How the commands at the top talk to their caller. Sourced by each of them, after it has set
# `command_name` to its own name and `root` to the project's folder.

# One line, and an end with status 1: something outside the command line is wrong.
fail() {
  printf '%s: %s\n' "$command_name" "$*" >&2
  exit 1
}

# One line, and an end with status 2: the command line is wrong.
usage_error() {
  printf '%s: %s (see %s --help)\n' "$command_name" "$*" "$command_name" >&2
  exit 2
}

# need_value OPTION [VALUE]: OPTION wants something behind it.
need_value() {
  if (($# < 2)) || [[ -z $2 ]]; then usage_error "$1 needs a value"; fi
}

# need_number OPTION [VALUE]: a number that isn't negative.
need_number() {
  need_value "$@"
  [[ $2 =~ ^[0-9]+(\.[0-9]+)?$ ]] || usage_error "$1 needs a number, not '$2'"
}

# need_folder OPTION [VALUE]: a folder that is there.
need_folder() {
  need_value "$@"
  [[ -d $2 ]] || usage_error "$1: there is no folder '$2'"
}
