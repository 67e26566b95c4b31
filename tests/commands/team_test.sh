#!/usr/bin/env bash
# ./team with stand-ins for the player. The real ones are in match_test.sh.
. "$(dirname "${BASH_SOURCE[0]}")/support.sh"

# Players that do what standard input says. ./team wants to see the other program of a build too.
players() {
  stand_in pitchagent
  stand_in pitcharena <<<'exit 1'
}

# team WAY [OPTION...]: WAY is run, to the end, or launch, in the background.
team() {
  local way=$1
  shift
  "$way" env PITCH_BUILD="$temp" "$root/team" --logs "$temp/logs" "$@"
}

team_of_patient_players() {
  players <<'EOF'
echo "I am $* in $PWD"
trap 'echo bye; exit 0' INT
exec {never}<> <(:)
echo ready
read -r -u "$never"
EOF
  team launch --host=192.0.2.7
  wait_until 20 all_ready
}

all_ready() {
  [[ $(cat "$temp"/logs/player-*.log 2>/dev/null | grep -c '^ready$') == 6 ]]
}

EachPlayerHasItsNumberFolderAndLog() {
  team_of_patient_players
  for number in 1 2 3 4 5 6; do
    grep -qx "I am --host=192.0.2.7 --unum=$number in $root/scripts" \
      "$temp/logs/player-$number.log" || flunk "player $number was called otherwise"
  done
}

HostMayStandAsAWordOfItsOwn() {
  players <<<'echo "I am $*"'
  team run --host 192.0.2.7
  grep -q 'I am --host=192.0.2.7 --unum=6' "$temp/logs/player-6.log" || flunk "another host"
}

HostIsAskedFor() {
  players <<<''
  team run
  expect_status 2
  expect_one_error '--host=IP is missing'
}

InterruptEndsPlayersInOrder() {
  team_of_patient_players
  kill -INT "$launched"
  reap
  expect_status 0
  expect_empty err
  [[ $(cat "$temp"/logs/player-*.log | grep -c '^bye$') == 6 ]] || flunk "not all said bye"
  nothing_runs || flunk "left behind: $(marked_processes)"
}

PlayersThatHearNothingAreStoppedAllTheSame() {
  players <<'EOF'
trap '' INT TERM
exec {never}<> <(:)
echo ready
read -r -u "$never"
EOF
  team launch --host=192.0.2.7
  wait_until 20 all_ready
  kill -INT "$launched"
  reap
  expect_status 0
  nothing_runs || flunk "left behind: $(marked_processes)"
}

TerminationAndHangUpLeaveNothingBehind() {
  for signal in TERM:143 HUP:129; do
    team_of_patient_players
    kill "-${signal%:*}" "$launched"
    reap
    expect_status "${signal#*:}"
    wait_until 5 nothing_runs
    rm -r "$temp/logs"
  done
}

KillLeavesNothingBehind() {
  team_of_patient_players
  kill -KILL "$launched"
  wait_until 5 nothing_runs
}

EndedPlayersAreToldWithTheirStatus() {
  players <<'EOF'
[[ $2 != --unum=2 ]] || kill -PIPE $$
exit "${2#--unum=}"
EOF
  team run --host=192.0.2.7
  expect_status 1
  expect_text out "^team: player 1 ended with status 1, see $temp/logs/player-1.log\$"
  expect_text out '^team: player 2 ended with status 141 \(SIGPIPE\), see '
  expect_text out '^team: player 6 ended with status 6, see '
  expect_one_error 'team: all players have ended'
}

OthersPlayOnWhenOneEnds() {
  players <<'EOF'
[[ $2 != --unum=3 ]] || exit 9
exec tail -f /dev/null
EOF
  team launch --host=192.0.2.7
  wait_until 20 grep -q '^team: player 3 ended with status 9,' "$temp/out"
  count_running tail 5 || flunk "others have ended too: $(marked_processes)"
  kill -INT "$launched"
  reap
  expect_status 0
}

"$1"
