# shellcheck shell=bash
# shellcheck disable=SC2154,SC2034  # root is set by the command that sources this, which uses build
# The fuzz targets, and how they are built and run. Sourced by fuzz/run and fuzz/minimise.

fuzz_targets=(turn reading scripts link record page)
build=$root/build/fuzz

need_target() {
  local known
  [[ -n $1 ]] || usage_error "which target?"
  for known in "${fuzz_targets[@]}"; do
    [[ $1 == "$known" ]] && return
  done
  usage_error "there is no target '$1'"
}

# Makes the target's program up to date.
build_target() {
  command -v clang++ >/dev/null || fail "there is no clang++; ./setup --for release installs it"
  mkdir -p "$build"
  if ! { (cd "$root" && cmake --preset fuzz) && cmake --build "$build" --target "fuzz_$1"; } \
    >"$build/build.log" 2>&1; then
    grep -v '^\[[0-9]*/[0-9]*\]' "$build/build.log" >&2
    fail "the build failed"
  fi
}

# run_target OPTION...: the target's program. It ends with this command, whatever ends that.
run_target() {
  local entropic=1
  # Beast's templates have so many features that weighing them takes longer than running the target.
  [[ $target == page ]] && entropic=0
  ASAN_OPTIONS=malloc_context_size=6:quarantine_size_mb=16 \
  LSAN_OPTIONS=suppressions=$root/cmake/lsan.supp:print_suppressions=0 \
    setpriv --pdeathsig KILL "$build/bin/fuzz_$target" -dict="$root/fuzz/dictionaries/$target.dict" \
    -max_len=4096 -entropic=$entropic -timeout=10 -rss_limit_mb=2048 "$@"
}
