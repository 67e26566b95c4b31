#!/usr/bin/env bash
# How every command answers a caller who asks for help or errs.
. "$(dirname "${BASH_SOURCE[0]}")/support.sh"

commands=(setup play team check .ci/run tools/check-includes tools/check-threads tools/check-memory
  tools/check-match tools/coverage tools/package tools/try-package tools/fresh-machine soak/run)

HelpExplainsAndEndsWell() {
  for command in "${commands[@]}"; do
    run "$root/$command" --help
    expect_status 0
    expect_empty err
    expect_text out '^usage: '
    expect_text out 'Exit status:'
  done
}

HelpComesFromAnyFolder() {
  cd / || exit 1
  HelpExplainsAndEndsWell
}

HelpComesThroughALink() {
  for command in setup play team check; do
    ln -s "$root/$command" "$temp/$command"
    run "$temp/$command" --help
    expect_status 0
    expect_text out "^usage: ./$command"
  done
}

UnknownOptionIsNamedInOneLine() {
  cd / || exit 1
  for command in "${commands[@]}"; do
    for option in --bogus --bogus=3 -x; do
      run "$root/$command" "$option"
      expect_status 2
      expect_one_error "${option%=*}"
      expect_empty out
    done
  done
}

StrayWordIsNamedInOneLine() {
  for command in setup play team check tools/package tools/try-package tools/fresh-machine; do
    run "$root/$command" stray
    expect_status 2
    expect_one_error stray
  done
}

MissingValueIsNamedInOneLine() {
  for call in 'setup --for' 'play --half-seconds' 'play --seed=' 'play --logs' 'team --host' 'team --host=' \
    'tools/package --maintainer' 'tools/try-package --mirror' 'tools/fresh-machine --cache'; do
    read -r -a words <<<"$call"
    run "$root/${words[0]}" "${words[1]}"
    expect_status 2
    option=${words[1]%=}
    expect_one_error "$option needs a value"
  done
}

ValueThatIsNoNumberIsNamedInOneLine() {
  for value in -3 nan 1e 5s; do
    run "$root/play" --half-seconds "$value"
    expect_status 2
    expect_one_error "'$value'"
  done
}

"$1"
