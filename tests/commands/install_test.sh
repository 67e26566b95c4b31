#!/usr/bin/env bash
# What `cmake --install` puts down works by itself: nothing in it leads back to the source tree.
. "$(dirname "${BASH_SOURCE[0]}")/support.sh"
build=${PITCH_TEST_BUILD:?the build to test}
installed=$temp/usr

# The installed tree; the test goes on in a folder that has nothing of the source tree.
install_and_leave() {
  cmake --install "$build" --prefix "$installed" >"$temp/out" 2>&1 || flunk "not installed"
  mkdir "$temp/elsewhere"
  cd "$temp/elsewhere" || exit 1
}

MatchIsPlayedToldAgainAndDrawn() {
  install_and_leave
  run env -u PITCH_BUILD XDG_STATE_HOME="$temp/state" "$installed/bin/pitch-play" --address "$host" \
    --half-seconds 3 --wait-seconds 2 --speed 0 --no-view --record match.rec --summary live.json
  expect_status 0
  expect_empty err
  expect_text out '^summary: .* game clock 6.00 s'
  for number in 1 2 3 4 5 6; do
    expect_text out "s +left $number beamed"
    grep -q '^connected successfully!$' "$temp/state/pitchagent/play/player-$number.log" ||
      flunk "player $number says nothing of a connection"
  done
  run "$installed/bin/pitcharena" replay match.rec --summary replayed.json
  expect_status 0
  cmp live.json replayed.json || flunk "the replay's figures are others"
  run "$installed/bin/pitcharena" picture match.rec -o match.svg
  expect_status 0
  grep -q '</svg>' match.svg || flunk "no picture"
  nothing_runs || flunk "left behind: $(marked_processes)"
}

# player_folders: where the players run that `launched` has started, a line each.
player_folders() {
  local pid
  for pid in $(<"/proc/$launched/task/$launched/children"); do
    [[ $(<"/proc/$pid/comm") != pitchagent ]] || readlink "/proc/$pid/cwd"
  done 2>/dev/null
}

all_six_run() {
  (($(player_folders | wc -l) == 6))
}

PlayersRunInTheInstalledScripts() {
  install_and_leave
  : >arena
  setpriv --pdeathsig KILL "$installed/bin/pitcharena" --listen "$host" --no-view --wait-seconds 300 \
    </dev/null >arena 2>&1 &
  wait_until 20 grep -q '^listening on ' arena
  launch "$installed/bin/pitch-team" --host="$host" --logs logs
  wait_until 20 all_six_run
  [[ $(player_folders | sort -u) == "$installed/share/pitchagent/scripts" ]] ||
    flunk "players run in $(player_folders)"
  kill -INT "$launched"
  reap
  expect_status 0
  expect_text out '^pitch-team: six players against '
}

# fetch PORT TARGET: what the page's server says.
fetch() {
  exec {connection}<>"/dev/tcp/127.0.0.1/$1"
  printf 'GET %s HTTP/1.1\r\nHost: 127.0.0.1:%s\r\nConnection: close\r\n\r\n' "$2" "$1" >&"$connection"
  cat <&"$connection"
  exec {connection}>&-
}

PageIsTheInstalledOne() {
  install_and_leave
  echo '/* installed here */' >>"$installed/share/pitchagent/viewer/page/style.css"
  launch "$installed/bin/pitcharena" --listen "$host" --port 0 --view-port 0
  wait_until 20 grep -q '^watch it at ' "$temp/out"
  port=$(sed -n 's|^watch it at http://127.0.0.1:\([0-9]*\)/$|\1|p' "$temp/out")
  fetch "$port" /style.css | grep -q '^/\* installed here \*/' || flunk "another page"
  fetch "$port" /three.module.js | grep -q '^HTTP/1.1 200 ' || flunk "no three.js"
  kill -INT "$launched"
  reap
  expect_status 0
}

MotionsAreTheInstalledOnes() {
  install_and_leave
  run "$installed/bin/pitchmotion" generate turn9 --scripts mine
  expect_status 0
  for script in mine/*.txt; do
    cmp "$script" "$installed/share/pitchagent/scripts/${script#mine/}" || flunk "$script is another"
  done
  run "$installed/bin/pitchmotion" check mine/*.txt
  expect_status 0
  run "$installed/bin/pitchmotion" play turnL9
  expect_status 0
  expect_text out '^end  *stands$'
}

# A build for finding faults names its sources on purpose.
NothingNamesTheSourceTree() {
  install_and_leave
  grep -q '^CMAKE_BUILD_TYPE:[A-Z]*=Release$' "$build/CMakeCache.txt" || exit 0
  files=$(grep -rlF -e "$root" "$installed")
  [[ -z $files ]] || flunk "the source tree is named in $files"
}

EveryCommandHasItsPage() {
  install_and_leave
  for command in "$installed"/bin/*; do
    [[ -x $command ]] || flunk "$command can't be run"
    zcat "$installed/share/man/man1/${command##*/}.1.gz" | grep -q "^\.Nm ${command##*/}\$" ||
      flunk "no page of ${command##*/}"
  done
  zcat "$installed/share/man/man5/pitchagent-scripts.5.gz" | grep -q '^\.Sh' || flunk "no scripts page"
}

VersionsAgree() {
  version=$(sed -n 's/^project(pitchagent VERSION \([0-9.]*\) .*/\1/p' "$root/CMakeLists.txt")
  [[ $version =~ ^[0-9]+\.[0-9]+\.[0-9]+$ ]] || flunk "the project has no version"
  head -n 1 "$root/packaging/changelog" | grep -qF "pitchagent ($version-" ||
    flunk "packaging/changelog has another version than $version on top"
}

"$1"
