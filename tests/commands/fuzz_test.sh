#!/usr/bin/env bash
# fuzz/run and what belongs to a target; nothing is built or fuzzed here.
. "$(dirname "${BASH_SOURCE[0]}")/support.sh"

targets_of_cmake() {
  sed -n 's/^pitch_fuzz(\([a-z]*\).*/\1/p' "$root/fuzz/CMakeLists.txt" | sort
}

HelpNamesTheTargetsThatAreBuilt() {
  run "$root/fuzz/run" --help
  expect_status 0
  sed -n 's/^Targets: //p' "$temp/out" | tr ' ' '\n' | sort >"$temp/told"
  targets_of_cmake | cmp -s - "$temp/told" || flunk "others than fuzz/CMakeLists.txt has"
}

EveryTargetHasADictionaryAndSomethingToStartFrom() {
  [[ -n $(targets_of_cmake) ]] || flunk "no targets"
  for target in $(targets_of_cmake); do
    [[ -s $root/fuzz/dictionaries/$target.dict ]] || flunk "no dictionary for $target"
    [[ -n $(find "$root/fuzz/corpus/$target" -type f) ]] || flunk "no inputs for $target"
  done
}

WrongCommandLinesAreToldInOneLine() {
  run "$root/fuzz/run" nosuch 1
  expect_status 2
  expect_one_error "no target 'nosuch'"
  run "$root/fuzz/run" turn
  expect_status 2
  expect_one_error 'SECONDS'
  run "$root/fuzz/run" turn 1 --jobs none
  expect_status 2
  expect_one_error '--jobs takes a number'
  run "$root/fuzz/minimise" nosuch
  expect_status 2
  expect_one_error "no target 'nosuch'"
}

"$1"
