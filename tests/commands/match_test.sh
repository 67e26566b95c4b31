#!/usr/bin/env bash
# ./play and ./team with the real programs, in a network of its own where that is permitted.
. "$(dirname "${BASH_SOURCE[0]}")/support.sh"
export PITCH_BUILD=${PITCH_TEST_BUILD:?the build to test}

# play WAY [OPTION...]: WAY is run, to the end, or launch, in the background.
play() {
  local way=$1
  shift
  "$way" "$root/play" --address "$host" --logs "$temp/logs" --seed 7 --no-view "$@"
}

# An arena by itself, in the background. Sets `arena`.
start_arena() {
  mkdir -p "$temp/logs"
  setpriv --pdeathsig KILL "$PITCH_BUILD/bin/pitcharena" --listen "$host" "$@" \
    </dev/null >"$temp/logs/arena" 2>&1 &
  arena=$!
  wait_until 20 grep -q '^listening on ' "$temp/logs/arena"
}

# has_all_six FILE WORD: a line for each player says WORD.
has_all_six() {
  local number
  for number in 1 2 3 4 5 6; do
    grep -qE -e "s +left $number $2" "$1" || return 1
  done
}

ShortMatchIsPlayedToTheEnd() {
  play run --half-seconds 3 --wait-seconds 2 --speed 0
  expect_status 0
  expect_empty err
  expect_text out "^listening on $host:3100\$"
  has_all_six "$temp/out" connected || flunk "not all connected"
  has_all_six "$temp/out" beamed || flunk "not all beamed"
  expect_text out 's  play mode GameOver$'
  expect_text out '^summary: .* game clock 6.00 s'
  for number in 1 2 3 4 5 6; do
    expect_text out "^left $number .*  stands\$"
    grep -q "^connected successfully!$" "$temp/logs/player-$number.log" ||
      flunk "player $number says nothing of a connection"
  done
  nothing_runs || flunk "left behind: $(marked_processes)"
}

# has_side FILE SIDE WORD
has_side() {
  local number
  for number in 1 2 3 4 5 6; do
    grep -qE -e "s +$2 $number $3" "$1" || return 1
  done
}

TwelvePlayTheirTeamToTheEnd() {
  play run --versus --half-seconds 3 --wait-seconds 2 --speed 0 --record "$temp/match" \
    --summary "$temp/live.json"
  expect_status 0
  expect_empty err
  for side in left right; do
    has_side "$temp/out" $side connected || flunk "not all of $side connected"
    has_side "$temp/out" $side beamed || flunk "not all of $side beamed"
    for number in 1 2 3 4 5 6; do
      grep -q "^connected successfully!$" "$temp/logs/$side-$number.log" || flunk "$side $number"
    done
  done
  if grep -q ' dropped: \| ended with ' "$temp/out"; then flunk "somebody did not live to the end"; fi
  run "$PITCH_BUILD/bin/pitcharena" replay "$temp/match" --summary "$temp/replayed.json"
  expect_status 0
  cmp "$temp/live.json" "$temp/replayed.json" || flunk "the replay's figures are others"
  nothing_runs || flunk "left behind: $(marked_processes)"
}

killed_and_back() {
  grep -q 'left 4 dropped: ' "$temp/out" &&
    (($(grep -c 's  left 4 connected' "$temp/out") == 2))
}

# The process id of the player with number $1 that this test has started.
player_of_this_test() {
  local pid name
  while read -r pid name; do
    [[ $name != pitchagent ]] || ! grep -qzx -e "--unum=$1" "/proc/$pid/cmdline" || echo "$pid"
  done < <(marked_processes)
}

KilledPlayerComesBackAndTheMatchGoesOn() {
  play launch --wait-seconds 2 --half-seconds 300
  wait_until 60 has_all_six "$temp/out" beamed
  kill -KILL "$(player_of_this_test 4)"
  wait_until 60 killed_and_back
  expect_text out '^play: player 4 ended with status 137 \(SIGKILL\), see '
  expect_text out '^play: player 4 is started again$'
  count_running pitchagent 6 || flunk "not six: $(marked_processes)"
  kill -INT -- "-$launched"
  reap
  expect_status 0
  expect_empty err
}

PortInUseIsToldInOneLine() {
  start_arena
  play run
  expect_status 2
  expect_one_error 3100
  nothing_runs || flunk "left behind: $(marked_processes)"
}

InterruptedMatchEndsWithTheSummary() {
  play launch --wait-seconds 2 --half-seconds 300
  wait_until 60 has_all_six "$temp/out" beamed
  kill -INT -- "-$launched"
  reap
  expect_status 0
  expect_empty err
  expect_text out '^summary: '
  for number in 1 2 3 4 5 6; do expect_text out "^left $number .*  stands\$"; done
  nothing_runs || flunk "left behind: $(marked_processes)"
}

KilledMatchLeavesNothingBehind() {
  play launch --wait-seconds 2 --half-seconds 300
  wait_until 60 has_all_six "$temp/out" connected
  kill -KILL "$launched"
  wait_until 5 nothing_runs
}

TeamJoinsAServerAndEndsInOrder() {
  start_arena --wait-seconds 2
  launch "$root/team" --host="$host" --logs "$temp/logs"
  wait_until 60 has_all_six "$temp/logs/arena" beamed
  kill -INT "$launched"
  reap
  expect_status 0
  expect_empty err
  nothing_runs || flunk "left behind: $(marked_processes)"
}

# A stopped server still takes connections, and then says nothing.
TeamStopsAgainstASilentServer() {
  start_arena --wait-seconds 300
  kill -STOP "$arena"
  launch "$root/team" --host="$host" --logs "$temp/logs"
  wait_until 60 count_running pitchagent 6
  kill -INT "$launched"
  reap
  expect_status 0
  nothing_runs || flunk "left behind: $(marked_processes)"
}

# The players themselves would wait for it without end.
TeamWhoseServerIsKilledSaysSoAndEnds() {
  start_arena --wait-seconds 2
  launch "$root/team" --host="$host" --logs "$temp/logs"
  wait_until 60 has_all_six "$temp/logs/arena" beamed
  kill -KILL "$arena"
  reap
  expect_status 1
  expect_one_error "team: the server at $host has gone"
  nothing_runs || flunk "left behind: $(marked_processes)"
}

TeamWithoutAServerSaysHowItEnded() {
  run "$root/team" --host="$host" --logs "$temp/logs"
  expect_status 1
  expect_text out '^team: player 6 ended with status 141 \(SIGPIPE\), see '
  expect_one_error 'team: all players have ended'
}

"$1"
