# shellcheck shell=bash
# shellcheck disable=SC2154  # root, bin, logs and command_name are set by the sourcing command
# Programs that must not outlive the command that started them. Sourced by ./play and ./team.
#
# Each child is started through setpriv, which makes the kernel kill it when its parent dies, even
# by kill -9. The parent is the process that forks it, so a child is never started from a subshell.

# The players that run: shirt number -> process id.
declare -A player_pid=()

# start_players ADDRESS: six players against the server there, each with a log of its own in $logs.
# They run in scripts/, where they look for their motion scripts. A shell's background commands
# ignore SIGINT; these shall not.
start_players() {
  local number
  for number in 1 2 3 4 5 6; do
    setpriv --pdeathsig KILL env --default-signal=INT --chdir="$root/scripts" \
      "$bin/pitchagent" "--host=$1" "--unum=$number" \
      </dev/null >"$logs/player-$number.log" 2>&1 &
    player_pid[$number]=$!
  done
}

# Says of each player that has ended how it did, once.
report_ended_players() {
  local number status
  for number in "${!player_pid[@]}"; do
    is_running "${player_pid[$number]}" && continue
    wait "${player_pid[$number]}" 2>/dev/null  # the shell has its own words for deaths by signal
    status=$?
    unset "player_pid[$number]"
    printf '%s: player %s ended with %s, see %s\n' "$command_name" "$number" \
      "$(describe_status "$status")" "$logs/player-$number.log"
  done
}

# describe_status STATUS: "status 1", or "status 134 (SIGABRT)" for a death by signal.
describe_status() {
  if (($1 > 128)); then
    printf 'status %s (SIG%s)' "$1" "$(kill -l "$1")"
  else
    printf 'status %s' "$1"
  fi
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
