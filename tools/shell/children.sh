# shellcheck shell=bash
# shellcheck disable=SC2154  # bin, scripts, logs and command_name are set by the sourcing command
# Programs that must not outlive the command that started them. Sourced by ./play and ./team.
#
# Each child is started through setpriv, which makes the kernel kill it when its parent dies, even
# by kill -9. The parent is the process that forks it, so a child is never started from a subshell.

# A player goes by the name of its log: "player-3", or "right-3" where there are two sides.
# The players that run: name -> process id.
declare -A player_pid=()
# Since when they do, by the shell's clock.
declare -A player_since=()
# How often each has ended at once, without a longer run in between.
declare -A player_quick_ends=()

# start_player ADDRESS NAME: a player against the server there, with its log in $logs. It runs in
# $scripts, where it looks for its motion scripts. A shell's background commands ignore SIGINT; this
# one shall not.
start_player() {
  setpriv --pdeathsig KILL env --default-signal=INT --chdir="$scripts" \
    "$bin/pitchagent" "--host=$1" "--unum=${2##*-}" </dev/null >>"$logs/$2.log" 2>&1 &
  player_pid[$2]=$!
  player_since[$2]=$SECONDS
}

# start_players ADDRESS GROUP: six players, each with a fresh log: GROUP-1.log and so on.
start_players() {
  local number
  for number in 1 2 3 4 5 6; do
    : >"$logs/$2-$number.log"
    start_player "$1" "$2-$number"
  done
}

# Says of each player that has ended how it did, once. Sets `ended` to their names. The shell has
# words of its own for deaths by signal, which come up wherever it next meets a child: hence the
# 2>/dev/null here and at the callers.
report_ended_players() {
  local name status
  ended=()
  for name in "${!player_pid[@]}"; do
    is_running "${player_pid[$name]}" && continue
    wait "${player_pid[$name]}" 2>/dev/null
    status=$?
    unset "player_pid[$name]"
    ended+=("$name")
    describe_status "$status"
    printf '%s: %s ended with %s, see %s\n' "$command_name" "${name/-/ }" \
      "$described" "$logs/$name.log"
  done
}

# restart_ended_players ADDRESS: starts those in `ended` again, unless it is of no use.
restart_ended_players() {
  local name
  for name in "${ended[@]}"; do
    ((SECONDS - player_since[$name] < 2)) || player_quick_ends[$name]=0
    player_quick_ends[$name]=$((${player_quick_ends[$name]:-0} + 1))
    if ((player_quick_ends[$name] >= 3)); then
      printf '%s: %s has ended three times at once and is left alone\n' "$command_name" "${name/-/ }"
    else
      printf '%s: %s is started again\n' "$command_name" "${name/-/ }"
      start_player "$1" "$name"
    fi
  done
}

# count_links: how many of the players have a link that is up at both ends, to the server's port. Sets
# `links`. A player whose server has gone does not end by itself, so it has to be seen from outside.
count_links() {
  local -A of_players=()
  local socket remote state
  while read -r socket; do
    of_players[${socket//[!0-9]/}]=yes
  done < <(find "${player_pid[@]/#//proc/}" -mindepth 2 -maxdepth 2 -path '*/fd/*' \
    -lname 'socket:*' -printf '%l\n' 2>/dev/null)
  links=0
  while read -r _ _ remote state _ _ _ _ _ socket _; do
    if [[ $remote == *:0C1C && $state == 01 && -n ${of_players[$socket]:-} ]]; then
      links=$((links + 1))
    fi
  done </proc/net/tcp
}

# describe_status STATUS: sets `described` to "status 1", or "status 134 (SIGABRT)" for a death by
# signal.
describe_status() {
  described="status $1"
  (($1 <= 128)) || described+=" (SIG$(kill -l "$1"))"
}

is_running() {
  kill -0 "$1" 2>/dev/null
}

# wait_for_end SECONDS PID...: true once all of them have ended, false when the time is over.
wait_for_end() {
  local deadline=$((SECONDS + $1)) pid
  shift
  for pid; do
    while is_running "$pid"; do
      ((SECONDS < deadline)) || return 1
      sleep 0.02
    done
  done
}

# stop_all PID...: SIGTERM, and SIGKILL for those that don't follow within two seconds.
stop_all() {
  (($#)) || return 0
  kill -TERM "$@" 2>/dev/null
  wait_for_end 2 "$@" || kill -KILL "$@" 2>/dev/null
  wait "$@" 2>/dev/null
}
