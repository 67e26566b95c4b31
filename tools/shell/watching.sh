# shellcheck shell=bash
# shellcheck disable=SC2154,SC2034  # root, bin, logs, address, seed, wait_seconds: the sourcing command's
# A match under ./play, watched from outside. Sourced by soak/run and tools/check-match.

# Since the machine was started, in seconds: `now`.
read_clock() {
  read -r now _ </proc/uptime
}

# start_match NAME HALF [OPTION...]: two teams, two halves of HALF seconds. Its record, its lines and
# the rest are $logs/NAME.*. Sets `match`, the process of ./play.
start_match() {
  name=$1
  : >"$logs/$name.lines"
  rm -f "$logs/$name".{rec,json,samples}
  names=()
  cycle=0 text='' page=''
  exec {said}< <(PITCH_BUILD=${bin%/bin} exec setpriv --pdeathsig KILL "$root/play" --versus \
    --address "$address" --speed 0 --wait-seconds "$wait_seconds" --half-seconds "$2" --seed "$seed" \
    --view-port 0 --logs "$logs/$name" --record "$logs/$name.rec" --summary "$logs/$name.json" \
    "${@:3}" </dev/null 2>&1)
  match=$!
}

# follow_match WAY: notes each line with its time, and calls WAY about twice a second, until the match
# has ended. Sets `status`. What WAY may use: `cycle`, the one of the last event; `now`.
follow_match() {
  local part code
  while :; do
    IFS= read -r -t 0.5 -u "$said" part
    code=$?
    text+=$part
    read_clock
    if ((code == 0)); then
      printf '%s\t%s\n' "$now" "$text" >>"$logs/$name.lines"
      take_line "$text"
      text=
    elif ((code <= 128)); then
      break
    fi
    "$1"
  done
  exec {said}<&-
  wait "$match"
  status=$?
}

take_line() {
  if [[ $1 =~ ^([0-9]+)\.([0-9][0-9])' s  ' ]]; then
    cycle=$(((BASH_REMATCH[1] * 100 + 10#${BASH_REMATCH[2]}) / 2))
    show_progress_of_match
  elif [[ $1 =~ ^'watch it at http://127.0.0.1:'([0-9]+) ]]; then
    page=${BASH_REMATCH[1]}
  fi
}

show_progress_of_match() {
  [[ ! -t 2 ]] || printf '\r%s: %s, cycle %d ' "$command_name" "$name" "$cycle" >&2
}

# The programs of the match: names[PID], "pitcharena" or "left-3" after the log it writes to.
declare -A names=()
find_programs() {
  local pid comm log
  for pid in $(<"/proc/$match/task/$match/children"); do
    [[ -z ${names[$pid]:-} ]] || continue
    read -r comm <"/proc/$pid/comm" || continue
    case $comm in
      pitcharena) names[$pid]=pitcharena ;;
      pitchagent)
        log=$(readlink "/proc/$pid/fd/1") && log=${log##*/} && names[$pid]=${log%.log} ;;
    esac
  done 2>/dev/null
}

# Those of `names` that are alive, and ./play: how much memory each has, one line each.
sample_memory() {
  local pid key value rest resident shared own
  find_programs
  for pid in "$match" "${!names[@]}"; do
    resident=
    while read -r key value rest; do
      case $key in
        Rss:) resident=$value ;;
        Pss:) shared=$value ;;
        Anonymous:) own=$value ;;
      esac
    done <"/proc/$pid/smaps_rollup"
    [[ -z $resident ]] || printf '%s\t%s\t%s %s %s\n' "$now" "${names[$pid]:-play}" \
      "$resident" "$shared" "$own"
  done >>"$logs/$name.samples" 2>/dev/null
}

# count_remaining PID...: of these processes how many still run. Sets `remaining`.
count_remaining() {
  local pid
  remaining=0
  for pid; do
    ! kill -0 "$pid" 2>/dev/null || remaining=$((remaining + 1))
  done
}

# note KEY VALUE...: a fact for the page.
note() {
  printf '%s\t%s\n' "$1" "${*:2}" >>"$logs/facts"
}
