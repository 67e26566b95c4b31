# shellcheck shell=bash
# shellcheck disable=SC2034,SC2154  # the sourcing command reads what is set here, and has set the rest
# Where ./play and ./team get their programs from, and what they say of it. Uses
# tools/shell/manners.sh. packaging/programs.sh.in takes its place in an installed tree.

called=./$command_name
replay_called="build/play/bin/pitcharena replay"
default_logs=$root/logs/$command_name
shown_logs=logs/$command_name

about_programs() {
  cat <<'END'
The programs are built first if needed. PITCH_BUILD=DIR in the environment takes the programs of
that build as they are; nothing is built.
END
}

# Sets `bin` to the folder that holds pitchagent, pitcharena and `more_programs`. With PITCH_BUILD set
# that build is taken as it stands; otherwise build/play is made up to date first. It has neither tests
# nor benchmarks, so that playing needs nothing but what playing needs.
more_programs=()
provide_programs() {
  local programs=(pitchagent pitcharena "${more_programs[@]}")
  if [[ -n ${PITCH_BUILD:-} ]]; then
    bin=$PITCH_BUILD/bin
    [[ $bin == /* ]] || bin=$PWD/$bin
    local program
    for program in "${programs[@]}"; do
      [[ -x $bin/$program ]] || fail "PITCH_BUILD: there is no program $bin/$program"
    done
    return
  fi
  "$root/setup" --for play || exit 1
  local build=$root/build/play
  bin=$build/bin
  mkdir -p "$build"
  if [[ ! -f $build/build.ninja ]]; then
    (cd "$root" && cmake --preset release -B "$build" -DBUILD_TESTING=OFF) \
      >"$build/configure.log" 2>&1 || { cat "$build/configure.log" >&2; fail "configuring failed"; }
  fi
  cmake --build "$build" --target "${programs[@]}" 2>&1 | tee "$build/build.log" | show_progress
  if ((PIPESTATUS[0] != 0)); then
    grep -v '^\[[0-9]*/[0-9]*\]' "$build/build.log" >&2
    fail "the build failed"
  fi
}

# Turns the build's lines into one line that counts up; into nothing where nobody looks on.
show_progress() {
  local line shown=
  while IFS= read -r line; do
    [[ -t 1 && $line =~ ^\[([0-9]+/[0-9]+)\] ]] || continue
    printf '\r%s: building %s ' "$command_name" "${BASH_REMATCH[1]}"
    shown=yes
  done
  [[ -z $shown ]] || printf '\r\033[K'
}
