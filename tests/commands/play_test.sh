#!/usr/bin/env bash
# ./play with stand-ins for its programs: what it starts, shows, says and stops. The real ones are
# in match_test.sh.
. "$(dirname "${BASH_SOURCE[0]}")/support.sh"

# An arena that gets ready, then does what standard input says, and players that note their call
# and wait. `doze` waits without a process of its own, which nobody would stop.
stand_ins() {
  {
    printf '%s\n' 'exec {never}<> <(:)' "doze() { read -r -u \"\$never\"; }" \
      'echo "listening on 127.0.0.1:3100"'
    cat
  } | stand_in pitcharena
  stand_in pitchagent <<'EOF'
echo "I am $* in $PWD"
exec tail -f /dev/null
EOF
}

# play WAY [OPTION...]: WAY is run, to the end, or launch, in the background.
play() {
  local way=$1
  shift
  "$way" env PITCH_BUILD="$temp" "$root/play" --logs "$temp/logs" "$@"
}

interrupt() {
  kill "-$1" "$launched"
}

all_play() {
  count_running tail 6 && grep -q ready "$temp/out"
}

# A match with six players that goes on until somebody ends it; its arena ends in order at SIGINT.
endless_match() {
  stand_ins <<'EOF'
trap 'echo "a summary"; exit 0' INT
echo ready
doze
EOF
  play launch
  wait_until 20 all_play
}

ArenaGetsTheOptionsInItsOwnWords() {
  stand_ins <<'EOF'
echo "called with $*"
EOF
  play run --half-seconds 20 --wait-seconds=3 --speed 2.5 --seed 7 --no-noise --address 127.0.0.9
  expect_status 0
  expect_text out "^called with --listen 127.0.0.9 --players 6 --player-logs $temp/logs\
 --half-seconds 20 --wait-seconds 3 --speed 2.5 --seed 7 --no-noise\$"
}

FilesAndPageArePassedOn() {
  stand_ins <<'EOF'
echo "called with $*"
EOF
  play run --record a.rec --summary b.json --view-port 8123
  expect_text out ' --record a.rec --summary b.json --view-port 8123$'
  play run --no-view
  expect_text out ' --no-view$'
}

# The left ones connect first, then the right ones are started.
VersusStartsTwelve() {
  stand_ins <<'EOF'
echo "called with $*"
until (($(grep -l unum "$LOGS"/*.log | wc -l) == 12)); do sleep 0.05; done 2>/dev/null
EOF
  stand_in pitchagent <<'EOF'
echo "I am $*, of the right $(ls "$LOGS" | grep -c right)"
sleep 0.2
echo "connected successfully!"
exec tail -f /dev/null
EOF
  LOGS=$temp/logs play run --versus
  expect_status 0
  expect_text out '^called with --listen 127.0.0.1 --players 12 '
  for number in 1 2 3 4 5 6; do
    [[ $(head -n 1 "$temp/logs/left-$number.log") == "I am --host=127.0.0.1 --unum=$number, of the right 0" ]] ||
      flunk "left $number started otherwise"
    [[ $(head -n 1 "$temp/logs/right-$number.log") == "I am --host=127.0.0.1 --unum=$number, of the right "[1-6] ]] ||
      flunk "right $number started otherwise"
  done
  wait_until 2 nothing_runs  # the sleep of a stand-in outlives it for a moment
}

# One that dies at once and is started again has two connections in its log.
RightOnesWaitForAllLeftOnesThoughOneConnectsTwice() {
  stand_ins <<'EOF'
until (($(cat "$LOGS"/*.log | grep -c playing) == 12)); do sleep 0.05; done 2>/dev/null
EOF
  stand_in pitchagent <<'EOF'
echo "of the left $(grep -l connected "$LOGS"/left-*.log | wc -l)"
if [[ $2 == --unum=5 ]]; then
  until (($(grep -c connected "$LOGS/left-4.log") == 2)); do sleep 0.05; done
  sleep 0.5
fi
echo "connected successfully!"
[[ $2 != --unum=4 ]] || ! mkdir "$ONCE" 2>/dev/null || kill -ABRT $$
echo playing
exec tail -f /dev/null
EOF
  LOGS=$temp/logs ONCE=$temp/once play run --versus
  expect_status 0
  expect_text out '^play: left 4 is started again$'
  for number in 1 2 3 4 5 6; do
    [[ $(head -n 1 "$temp/logs/right-$number.log") == "of the left 6" ]] ||
      flunk "right $number started too early"
  done
}

LogsOfAnEarlierMatchGo() {
  mkdir -p "$temp/logs"
  touch "$temp/logs/left-3.log" "$temp/logs/notes"
  stand_ins </dev/null
  play run
  [[ ! -e $temp/logs/left-3.log && -e $temp/logs/notes ]] || flunk "$(ls "$temp/logs")"
}

SixPlayersStartInTheScriptsFolder() {
  stand_ins <<'EOF'
for number in 1 2 3 4 5 6; do
  until [[ -s $LOGS/player-$number.log ]]; do sleep 0.05; done
done
EOF
  LOGS=$temp/logs play run --address 127.0.0.9
  expect_status 0
  for number in 1 2 3 4 5 6; do
    [[ $(cat "$temp/logs/player-$number.log") == "I am --host=127.0.0.9 --unum=$number in $root/scripts" ]] ||
      flunk "player $number was called otherwise"
  done
}

OtherScriptsMayBeNamedRelativeToTheCaller() {
  mkdir "$temp/mine"
  stand_ins <<'EOF'
until [[ -s $LOGS/player-6.log ]]; do sleep 0.05; done
EOF
  cd "$temp" || exit 1
  LOGS=$temp/logs play run --scripts mine
  expect_status 0
  grep -q " in $temp/mine\$" "$temp/logs/player-6.log" || flunk "player 6 started elsewhere"
}

ScriptsThatAreNotThereAreToldInOneLine() {
  play run --scripts nowhere
  expect_status 2
  expect_one_error "--scripts: there is no folder 'nowhere'"
}

PlayersWaitForTheArenaToListen() {
  stand_in pitcharena <<<'echo "not yet listening on anything"'
  stand_in pitchagent <<<''
  play run
  expect_status 0
  [[ ! -e $temp/logs/player-1.log ]] || flunk "a player started although nobody listened"
}

MatchEndsWithEverythingStopped() {
  stand_ins <<'EOF'
until (($(grep -l unum "$LOGS"/*.log | wc -l) == 6)); do sleep 0.05; done 2>/dev/null
printf 'the summary\nits last line'
EOF
  LOGS=$temp/logs play run
  expect_status 0
  expect_text out '^the summary$'
  expect_text out '^its last line$'
  expect_empty err
  nothing_runs || flunk "left behind: $(marked_processes)"
}

InterruptEndsInOrderWithTheSummary() {
  endless_match
  interrupt INT
  reap
  expect_status 0
  expect_text out '^a summary$'
  expect_empty err
  nothing_runs || flunk "left behind: $(marked_processes)"
}

InterruptFromTheTerminalDoesTheSame() {
  endless_match
  kill -INT -- "-$launched"  # the terminal sends it to the whole group
  reap
  expect_status 0
  expect_text out '^a summary$'
  nothing_runs || flunk "left behind: $(marked_processes)"
}

SecondInterruptDoesNotWaitForTheArena() {
  stand_ins <<'EOF'
trap 'echo "not yet"' INT
echo ready
doze
EOF
  play launch
  wait_until 20 all_play
  interrupt INT
  wait_until 20 grep -q 'not yet' "$temp/out"
  interrupt INT
  reap
  expect_status 130
  wait_until 5 nothing_runs
}

TerminationLeavesNothingBehind() {
  endless_match
  interrupt TERM
  reap
  expect_status 143
  wait_until 5 nothing_runs
}

HangUpLeavesNothingBehind() {
  endless_match
  interrupt HUP
  reap
  expect_status 129
  wait_until 5 nothing_runs
}

KillLeavesNothingBehind() {
  endless_match
  interrupt KILL
  wait_until 5 nothing_runs
}

ArenaThatDiesIsToldAndNothingIsLeftBehind() {
  stand_ins <<<'kill -SEGV $$'
  play run
  expect_status 1
  expect_one_error 'play: the training ground ended with status 139 (SIGSEGV)'
  nothing_runs || flunk "left behind: $(marked_processes)"
}

ArenaThatFailsAtOnceSpeaksForItself() {
  stand_in pitcharena <<'EOF'
echo 'pitcharena: port 3100 is in use' >&2
exit 2
EOF
  stand_in pitchagent <<<''
  play run
  expect_status 2
  expect_one_error 'pitcharena: port 3100 is in use'
  expect_empty out
}

PlayerThatDiesIsToldWithItsStatusAndStartedAgain() {
  stand_ins <<'EOF'
until (($(cat "$LOGS"/player-[45].log | grep -c again) == 2)); do sleep 0.05; done 2>/dev/null
EOF
  stand_in pitchagent <<'EOF'
if ! mkdir "$ONCE$2" 2>/dev/null; then echo again; exec tail -f /dev/null; fi
[[ $2 != --unum=4 ]] || kill -ABRT $$
[[ $2 != --unum=5 ]] || exit 3
exec tail -f /dev/null
EOF
  LOGS=$temp/logs ONCE=$temp/once play run
  expect_status 0
  expect_text out "^play: player 4 ended with status 134 \(SIGABRT\), see $temp/logs/player-4.log\$"
  expect_text out "^play: player 4 is started again\$"
  expect_text out "^play: player 5 ended with status 3, see "
  expect_text out "^play: player 5 is started again\$"
  [[ $(grep -c ' ended with ' "$temp/out") == 2 ]] || flunk "others are said to have ended too"
  expect_empty err
}

PlayerThatCannotLiveIsLeftAlone() {
  stand_ins <<'EOF'
until grep -q 'left alone' "$OUT"; do sleep 0.05; done
EOF
  stand_in pitchagent <<'EOF'
[[ $2 != --unum=2 ]] || exit 3
exec tail -f /dev/null
EOF
  OUT=$temp/out play run
  expect_status 0
  expect_text out '^play: player 2 has ended three times at once and is left alone$'
  [[ $(grep -c 'player 2 ended with status 3' "$temp/out") == 3 ]] || flunk "not three times"
}

PlayerThatEndsAfterTheMatchIsNoNews() {
  stand_ins <<'EOF'
echo "11.00 s  play mode GameOver"
until (($(grep -l gone "$LOGS"/*.log | wc -l) == 6)); do sleep 0.05; done 2>/dev/null
echo "a summary"
EOF
  stand_in pitchagent <<'EOF'
until grep -q 'GameOver' "$OUT"; do sleep 0.05; done
echo gone
exit 4
EOF
  LOGS=$temp/logs OUT=$temp/out play run
  expect_status 0
  expect_text out '^a summary$'
  if grep -q ' ended with ' "$temp/out"; then flunk "the players' end is told"; fi
}

MatchWithoutPlayersIsEnded() {
  stand_ins <<<'doze'
  stand_in pitchagent <<<'exit 4'
  play run
  expect_status 1
  expect_text out '^play: player 6 ended with status 4, see '
  expect_one_error 'play: all players have ended'
  wait_until 5 nothing_runs
}

MissingProgramIsNamed() {
  stand_in pitchagent <<<''
  play run
  expect_status 1
  expect_one_error "$temp/bin/pitcharena"
}

BuildMayBeNamedRelativeToTheCaller() {
  stand_ins <<'EOF'
until [[ -f $LOGS/player-1.log ]]; do sleep 0.05; done
EOF
  cd "$temp" || exit 1
  run env LOGS="$temp/logs" PITCH_BUILD=. "$root/play" --logs logs
  expect_status 0
  expect_text out '^listening on '
}

"$1"
