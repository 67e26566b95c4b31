#!/usr/bin/env bash
# ./setup with stand-ins for the system's programs, so that nothing is ever installed.
. "$(dirname "${BASH_SOURCE[0]}")/support.sh"

# The only programs that ./setup finds: what it needs of the shell's usual company, and stand-ins.
# `installed` lists the packages that are there; every call of apt-get and sudo is noted in `calls`.
only_stand_ins() {
  mkdir -p "$temp/bin"
  for program in bash env readlink dirname awk mktemp rm tail cat; do
    ln -s "$(command -v "$program")" "$temp/bin/$program"
  done
  : >"$temp/installed"
  : >"$temp/calls"
  stand_in id <<<'echo 0'
  stand_in dpkg-query <<EOF
package="\${!#}"
while read -r name; do [[ \$name == "\$package" ]] && { printf installed; exit 0; }; done <'$temp/installed'
exit 1
EOF
  stand_in apt-get <<EOF
echo "apt-get \$*" >>'$temp/calls'
EOF
}

setup() {
  run env PATH="$temp/bin" "$root/setup" "$@"
}

install_all_but() {
  awk -v but="$1" '$1 !~ /^#/ && NF && $1 != but { print $1 }' "$root/cmake/packages.txt" \
    >"$temp/installed"
}

CompleteSystemIsPassedInSilence() {
  only_stand_ins
  install_all_but nothing
  setup
  expect_status 0
  expect_empty out
  expect_empty err
  [[ ! -s $temp/calls ]] || flunk "apt-get was called"
}

OnlyWhatIsMissingIsInstalled() {
  only_stand_ins
  install_all_but libgsl-dev
  setup
  expect_status 0
  expect_empty err
  expect_text out '^setup: installing libgsl-dev$'
  printf '%s\n' 'apt-get update' 'apt-get install -y --no-install-recommends libgsl-dev' |
    cmp -s - "$temp/calls" || flunk "apt-get was called otherwise: $(cat "$temp/calls")"
}

PlayingNeedsNoToolsForChecking() {
  only_stand_ins
  setup --for play
  expect_text out ' libmujoco-dev '
  if grep -qE 'clang|gtest|shellcheck|benchmark' "$temp/out"; then flunk "checking tools for play"; fi
}

CheckingNeedsWhatPlayingNeeds() {
  only_stand_ins
  setup --for check
  expect_text out 'g\+\+ .*libmujoco-dev .*libgtest-dev .*shellcheck'
}

CheckingNeedsNoToolsForAReleaseWhichNeedsThoseForChecking() {
  only_stand_ins
  setup --for check
  if grep -qE ' clang( |$)' "$temp/out"; then flunk "release tools for check"; fi
  setup --for release
  expect_text out 'g\+\+ .*shellcheck .*clang( |$)'
}

SystemWithoutAptIsToldInOneLine() {
  only_stand_ins
  rm "$temp/bin/apt-get"
  setup
  expect_status 1
  expect_one_error 'no apt-get'
}

CallerWithoutRightsOrSudoIsToldWhatIsMissing() {
  only_stand_ins
  install_all_but g++
  stand_in id <<<'echo 1000'
  setup
  expect_status 1
  expect_one_error 'no sudo; missing: g++'
}

CallerWithSudoInstallsThroughIt() {
  only_stand_ins
  install_all_but g++
  stand_in id <<<'echo 1000'
  stand_in sudo <<EOF
echo sudo >>'$temp/calls'
"\$@"
EOF
  setup
  expect_status 0
  [[ $(grep -c '^sudo$' "$temp/calls") == 2 ]] || flunk "apt-get ran without sudo"
}

FailedInstallationShowsWhatAptSaid() {
  only_stand_ins
  stand_in apt-get <<<'echo "E: no network here"; exit 100'
  setup --for play
  expect_status 1
  expect_text err '^E: no network here$'
  expect_text err '^setup: apt-get could not install: g\+\+ '
}

"$1"
