#!/usr/bin/env bash
# Runs the commands that the README and other pages show, as they show them: in a folder that looks like
# the project's and whose builds are the one under test. way_of says how each is run; a command that
# has no line there fails the test, so pages and commands can't drift apart.
. "$(dirname "${BASH_SOURCE[0]}")/../commands/support.sh"
export PITCH_BUILD=${PITCH_TEST_BUILD:?the build to test}
[[ $PITCH_BUILD == /* ]] || PITCH_BUILD=$PWD/$PITCH_BUILD

# way_of COMMAND: one word, and what it needs.
#   run [ARGUMENTS]   as shown, with ARGUMENTS behind it that make it short or keep it to this place
#   serve TEXT        as shown; once a line of its output holds TEXT it is interrupted
#   team              as shown, against a training ground of its own; interrupted once all six play
#   presets           not run, it would build; its presets and targets are looked up
#   help              not run, it takes long or needs rights; with --help it is
#   elsewhere FILE    not run here, but by FILE
way_of() {
  local here="--address $host --logs $temp/logs --view-port 0"
  local short="$here --wait-seconds 1 --half-seconds 2 --speed 0"
  case $1 in
    ./play | './play --versus' | './play --record match.rec') echo "run $short" ;;
    './play --half-seconds 60 --speed 0') echo "run $short" ;;
    './team --host=127.0.0.1') echo team ;;
    ./check | './check --quick' | ./setup | './setup --for release') echo help ;;
    'fuzz/run '* | soak/run | bench/run | tools/coverage | tools/check-*) echo help ;;
    'build/play/bin/pitcharena replay match.rec --view') echo 'serve http://' ;;
    'build/play/bin/pitcharena '*) echo run ;;
    'build/release/bin/pitchmotion judge --scripts scripts --only sideL') echo 'run --worlds 1' ;;
    'build/release/bin/pitchmotion judge --quick') echo 'run --only turnL15 --only kickR' ;;
    'build/release/bin/pitchmotion tune kick --generations 20')
      echo 'run --generations 1 --population 5 --worlds 0' ;;
    'build/release/bin/pitchmotion generate kick') echo "run --scripts $temp/generated" ;;
    'build/release/bin/pitchmotion '*) echo run ;;
    'cmake --'* | 'ctest --'*) echo presets ;;
    tools/package | tools/try-package | 'tools/fresh-machine --play-only') echo help ;;
    'sudo apt install ./build/package/pitchagent_'*) echo 'elsewhere tools/try-package' ;;
    'pitch-play --half-seconds 60' | 'man pitch-play')
      echo 'elsewhere tests/commands/install_test.sh' ;;
    *) echo unknown ;;
  esac
}

# The command lines in the sh blocks of PAGE, without their comments.
commands_of() {
  awk '/^```/ { shell = ($0 == "```sh") ; next } shell && NF && !/^#/' "$1" |
    sed 's/ \{2,\}# .*//; s/ *$//'
}

# A folder in which the README's commands find what they name. What they write stays in it.
make_place() {
  place=$temp/place
  mkdir -p "$place/build" "$temp/generated"
  local entry
  for entry in "$root"/*; do
    entry=${entry##*/}
    [[ $entry == build || $entry == logs ]] || ln -s "$root/$entry" "$place/$entry"
  done
  ln -s "$PITCH_BUILD" "$place/build/play"
  ln -s "$PITCH_BUILD" "$place/build/release"
  cd "$place" || exit 1
}

expect_well() {
  [[ $status == 0 ]] || flunk "'$command' ended with $status"
}

# The last of an option that is given twice counts for ./play; for the workshop's programs a second
# one is an error, so there the shorter value takes the first one's place.
run_shown() {
  local words=$command more=$1 option
  for option in $more; do
    [[ $option != --* ]] || words=$(sed -E "s/ ${option}( [^- ][^ ]*)?( |\$)/ /" <<<"$words")
  done
  run bash -c "$words $more"
  expect_well
}

serve_shown() {
  launch bash -c "exec $command"
  wait_until 20 grep -qF -e "$1" "$temp/out"
  kill -INT "$launched"
  reap
  expect_well
}

all_six_play() {
  (($(grep -c ' connected, team ' "$temp/arena") == 6))
}

team_shown() {
  setpriv --pdeathsig KILL "$PITCH_BUILD/bin/pitcharena" --listen "$host" --no-view \
    </dev/null >"$temp/arena" 2>&1 &
  local arena=$!
  wait_until 20 grep -q '^listening on ' "$temp/arena"
  launch bash -c "exec ${command//127.0.0.1/$host} --logs $temp/logs"
  wait_until 30 all_six_play
  kill -INT "$launched"
  reap
  kill -INT "$arena"
  wait "$arena"
  expect_well
}

# words_behind OPTION: what stands behind each of its places in the command, a line each.
words_behind() {
  grep -oE -e "$1 [a-z_]+" <<<"$command" | cut -d ' ' -f 2
}

presets_shown() {
  local preset target known
  known=$(cmake --list-presets=all)
  while read -r preset; do
    [[ $known == *"\"$preset\""* ]] || flunk "no preset $preset"
  done < <(words_behind --preset)
  while read -r target; do
    run ninja -C "$PITCH_BUILD" -t query "$target"
    [[ $status == 0 ]] || flunk "no target $target"
  done < <(words_behind --target)
}

# run_commands PATTERN [PAGE]: those of the page's, the README's, that fit it.
run_commands() {
  local way rest count=0 page=${2:-README.md}
  while read -r command; do
    [[ $command =~ $1 ]] || continue
    read -r way rest <<<"$(way_of "$command")"
    case $way in
      run) run_shown "$rest" ;;
      serve) serve_shown "$rest" ;;
      team) team_shown ;;
      presets) presets_shown ;;
      elsewhere) [[ -f $root/$rest ]] || flunk "no $rest that runs '$command'" ;;
      help) run bash -c "${command%% *} --help"; expect_well ;;
      *) flunk "nobody knows how to run '$command'" ;;
    esac
    count=$((count + 1))
  done < <(commands_of "$root/$page")
  nothing_runs || flunk "left behind: $(marked_processes)"
  ((count > 0)) || flunk "$page shows no such command"
}

EveryCommandHasAWay() {
  local page command
  for page in README.md docs/*.md; do
    while read -r command; do
      [[ $(way_of "$command") != unknown ]] || flunk "no way to run '$command' is told in way_of"
    done < <(commands_of "$page")
  done
}

MatchesArePlayedRecordedAndShownAgain() {
  run_commands '^\./play|pitcharena'
  [[ -s $place/match.rec && -s $place/match.svg ]] || flunk "no record, or no picture of it"
}

TeamPlaysOnAnotherServer() {
  run_commands '^\./team'
}

MotionsAreCheckedPlayedJudgedAndTuned() {
  run_commands pitchmotion
  [[ -s $place/kick.svg ]] || flunk "no plot of the kick"
}

# The worked examples of the page are put where its commands look for them.
WorkedScriptsAreCheckedAndPlayed() {
  mkdir mine
  awk '/^```script / { file = "mine/" $2; next } /^```/ { file = "" } file != "" { print > file }' \
    docs/scripts.md
  run_commands . docs/scripts.md
  run build/release/bin/pitchmotion check mine/*.txt
  expect_status 0
  expect_empty out
  run build/release/bin/pitchmotion play sideL --scripts mine
  expect_text out '^end +stands$'
}

# Each `ctest ... -R PATTERN` or `-L LABEL` of the recipes.
RecipesNameTestsThatExist() {
  local words count=0
  while read -r words; do
    run bash -c "ctest --test-dir '$PITCH_BUILD' -N ${words#ctest --preset release}"
    grep -q '^Total Tests: [1-9]' "$temp/out" || flunk "no test fits '$words'"
    count=$((count + 1))
  done < <(grep -oE 'ctest --preset release [^`]*' docs/contributing.md | sort -u |
    grep -v LengthAboveTheLimit$)
  ((count > 5)) || flunk "only $count calls of ctest found"
}

OtherCommandsExist() {
  run_commands '^(\./(check|setup)|cmake|ctest|(tools|fuzz|soak|bench)/|sudo|pitch-play|man )'
}

EveryCommandIsRunByOneOfTheseTests() {
  local patterns command
  patterns=$(grep -oE "^  run_commands '.*|^  run_commands [a-z]*$" "$root/tests/docs/readme_test.sh" |
    sed "s/^  run_commands //; s/'//g")
  while read -r command; do
    grep -qE -f <(printf '%s\n' "$patterns") <<<"$command" || flunk "no test runs '$command'"
  done < <(commands_of "$root/README.md")
}

make_place
"$1"
