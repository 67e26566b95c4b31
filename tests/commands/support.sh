# shellcheck shell=bash
# shellcheck disable=SC2034  # set for the tests that source this
# What the tests of the commands stand on. Sourced by each *_test.sh, which ctest calls with the
# name of one test, that is of one function. From ctest: PITCH_TEST_BUILD, the build under test.
set -u -o pipefail
root=$(dirname "$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")")
host=${PITCH_TEST_HOST:-127.0.0.1}

temp=$(mktemp -d) || exit 1
trap 'rm -rf "$temp"' EXIT

# Every program that a test starts has this text in its environment, and so have their children: it
# tells what is left behind.
mark=pitch-commands-$$-$RANDOM

flunk() {
  printf 'FAILED: %s\n' "$*"
  for file in "$temp"/out "$temp"/err "$temp"/logs/*; do
    [[ -s $file ]] && { printf -- '--- %s:\n' "$file"; tail -n 50 "$file"; }
  done
  exit 1
}

# run COMMAND...: to its end. Sets `status`; output in $temp/out, errors in $temp/err.
run() {
  launch "$@"
  wait "$launched"
  status=$?
}

# launch COMMAND...: in the background. Sets `launched`. Dies with the test. Job control is on for a
# moment so that the command may be interrupted as one in the foreground may.
launch() {
  set -m
  setpriv --pdeathsig KILL env PITCH_TEST_MARK="$mark" "$@" </dev/null >"$temp/out" 2>"$temp/err" &
  launched=$!
  set +m
}

# The launched command's end. Sets `status`.
reap() {
  wait_until 20 has_ended "$launched"
  wait "$launched"
  status=$?
}

has_ended() {
  ! kill -0 "$1" 2>/dev/null
}

# wait_until SECONDS COMMAND...: asks until it says yes; the test fails when the time is over. A build
# whose programs are slow asks for more patience.
wait_until() {
  local deadline=$((SECONDS + $1 * ${PITCH_TEST_PATIENCE:-1}))
  shift
  until "$@"; do
    ((SECONDS < deadline)) || flunk "waited in vain for: $*"
    sleep 0.05
  done
}

# Process ids and names of the programs that carry the mark.
marked_processes() {
  local file
  for file in /proc/[0-9]*/environ; do
    if tr '\0' '\n' 2>/dev/null <"$file" | grep -qx "PITCH_TEST_MARK=$mark"; then
      file=${file%/environ}
      printf '%s %s\n' "${file#/proc/}" "$(cat "$file/comm" 2>/dev/null)"
    fi
  done 2>/dev/null
}

nothing_runs() {
  [[ -z $(marked_processes) ]]
}

# count_running NAME NUMBER: that many marked programs of that name run.
count_running() {
  (($(marked_processes | grep -c " $1\$") == $2))
}

expect_status() {
  [[ $status == "$1" ]] || flunk "status $status instead of $1"
}

# expect_text FILE PATTERN: a line of the output (out, err) fits the extended regular expression.
expect_text() {
  grep -qE -e "$2" "$temp/$1" || flunk "no line in $1 fits '$2'"
}

expect_empty() {
  [[ ! -s $temp/$1 ]] || flunk "$1 is not empty"
}

# expect_one_error TEXT: one line on standard error, with TEXT in it.
expect_one_error() {
  [[ $(wc -l <"$temp/err") == 1 ]] || flunk "not one line of error"
  grep -qF -e "$1" "$temp/err" || flunk "the error does not name '$1'"
}

# stand_in NAME: a program of that name in the folder $temp/bin, whose text comes on standard input.
stand_in() {
  mkdir -p "$temp/bin"
  { printf '#!/bin/bash\n'; cat; } >"$temp/bin/$1"
  chmod +x "$temp/bin/$1"
}
