#!/usr/bin/env bash
# The manual pages tell what is: of every option, of every file and word of the scripts.
. "$(dirname "${BASH_SOURCE[0]}")/support.sh"
bin=${PITCH_TEST_BUILD:?the build to test}/bin
pages=$root/docs/man

# The options on standard input, a --help text: one a line.
options_of_help() {
  awk '/^ +-/ { gsub(/\{[^}]*\}/, "", $1); sub(/=.*/, "", $1); gsub(/,/, "\n", $1); print $1 }' | sort
}

# options_of_page PAGE [COMMAND]: those in its section OPTIONS, or in the part on COMMAND.
options_of_page() {
  awk -v part="${2:-OPTIONS}" '
    /^\.S[hs] / { inside = ($2 == part) }
    inside && /^\.It Fl / {
      for (i = 2; i < NF; i++) if ($i == "Fl") print "-" $(i + 1)
    }' "$pages/$1" | sort
}

# same WHAT FILE FILE
same() {
  [[ -s $2 ]] || flunk "$1: nothing found"
  diff "$2" "$3" >"$temp/out" || flunk "$1"
}

# expect_same_options PAGE COMMAND WORD...: WORD... --help and the page tell of the same options.
expect_same_options() {
  local page=$1 command=$2
  shift 2
  "$@" --help | options_of_help >"$temp/help"
  options_of_page "$page" "$command" >"$temp/page"
  same "options of $* (left) and of $page (right)" "$temp/help" "$temp/page"
}

OptionsOfThePlayer() {
  expect_same_options pitchagent.1 '' "$bin/pitchagent"
}

OptionsOfTheLaunchers() {
  expect_same_options pitch-play.1 '' "$root/play"
  expect_same_options pitch-team.1 '' "$root/team"
}

# expect_all_commands PROGRAM: the program's help and its page name the same commands, and for each
# the same options.
expect_all_commands() {
  local page=$1.1 command
  expect_same_options "$page" '' "$bin/$1"
  "$bin/$1" --help | awk '/^Subcommands:/ { inside = 1; next } inside && /^  [a-z]/ { print $1 }' |
    sort >"$temp/commands"
  sed -n 's/^\.Ss //p' "$pages/$page" | sort >"$temp/page"
  same "commands of $1" "$temp/commands" "$temp/page"
  while read -r command; do
    expect_same_options "$page" "$command" "$bin/$1" "$command"
  done <"$temp/commands"
}

CommandsAndOptionsOfTheTrainingGround() {
  expect_all_commands pitcharena
}

CommandsAndOptionsOfTheWorkshop() {
  expect_all_commands pitchmotion
}

# kick poses stand there as "kickL1.txt to kickL8.txt".
FilesOfTheScripts() {
  (cd "$root/scripts" && printf '%s\n' *.txt) | grep -v '^kick[LR][2-7]\.' | LC_ALL=C sort >"$temp/files"
  sed -n '/^\.Sh FILES/,/^\.Sh EXAMPLES/p' "$pages/pitchagent-scripts.5" |
    grep -oE '[A-Za-z0-9]+\.txt' | LC_ALL=C sort -u >"$temp/page"
  same "scripts" "$temp/files" "$temp/page"
}

# words_of_page PART: the joint words in the page's table there.
words_of_page() {
  awk -v part="$1" '
    /^\.S[hs] / { inside = ($2 == part) }
    inside && /^\.It [A-Za-z]+ Ta [a-z]+[1-6] / { print $2 }' "$pages/pitchagent-scripts.5"
}

# expect_known PART FILE END COUNT: the player knows the words in the page's part on such scripts.
expect_known() {
  words_of_page "$1" >"$temp/words"
  (($(sort -u "$temp/words" | wc -l) == $4)) || flunk "not $4 words: $(cat "$temp/words")"
  { sed 's/$/ 0/' "$temp/words"; echo "$3"; } >"$temp/$2"
  "$bin/pitchmotion" check "$temp/$2" >"$temp/out" 2>&1 || flunk "a word of $1 means nothing"
}

WordsOfActionScripts() {
  expect_known Action sideL.txt 'move 0.04' 14
}

WordsOfPoseScripts() {
  expect_known Pose kickL1.txt 'MOVE 0.5' 20
}

ExamplesOfTheScriptsPageAreScripts() {
  awk '/^\.Bd/ { inside = 1; next } /^\.Ed/ { exit } inside' "$pages/pitchagent-scripts.5" >"$temp/kickL1.txt"
  grep -q '^MOVE' "$temp/kickL1.txt" || flunk "no example"
  "$bin/pitchmotion" check "$temp/kickL1.txt" >"$temp/out" || flunk "the pose"
  awk '/^\.Bd/ { inside = 1; next } /^\.Ed/ { inside = 0 } inside && /Command/' \
    "$pages/pitchagent-scripts.5" >"$temp/sideL.txt"
  grep -q 'move' "$temp/sideL.txt" || flunk "no example"
  "$bin/pitchmotion" check "$temp/sideL.txt" >"$temp/out" || flunk "the action"
}

PagesAreCleanToTheFormatter() {
  command -v mandoc >/dev/null || flunk "mandoc is not installed, see ./setup"
  # Whether a page is there that another refers to is asked below.
  mandoc -T lint -W style "$pages"/*.[15] 2>&1 | grep -v 'referenced manual not found' >"$temp/out"
  expect_empty out
}

# A page that another one sends its reader to is there.
ReferencesLeadSomewhere() {
  while read -r _ name section _; do
    [[ -f $pages/$name.$section ]] || flunk "no page $name($section)"
  done < <(grep -h '^\.Xr ' "$pages"/*.[15] | sort -u)
}

"$1"
