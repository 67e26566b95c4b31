# shellcheck shell=bash
# What tools/try-package does on the clean system: uses every installed program once, as a user
# would. Prints what it does; ends with status 1 at the first thing that isn't as it should be.
set -u -o pipefail
cd "$HOME" || exit 1

wrong() {
  printf 'trial: %s\n' "$*"
  exit 1
}

# fetch PORT TARGET: the page's server's answer, head and content.
fetch() {
  exec {connection}<>"/dev/tcp/127.0.0.1/$1"
  printf 'GET %s HTTP/1.1\r\nHost: 127.0.0.1:%s\r\nConnection: close\r\n\r\n' "$2" "$1" >&"$connection"
  cat <&"$connection"
  exec {connection}>&-
}

pitch-play --half-seconds 6 --speed 0 --record match.rec --summary live.json >match.txt 2>&1 ||
  { cat match.txt; wrong "the match failed"; }
cat match.txt
(($(grep -c 's  left [1-6] beamed' match.txt) >= 6)) || wrong "not all players took their places"
grep -q '^summary: .* played to the end' match.txt || wrong "the match was not played to the end"
if grep -q ' ended with ' match.txt; then wrong "a player died"; fi
echo "trial: a match was played, $(grep '^pace:' match.txt)"

pitcharena replay match.rec --summary replayed.json >/dev/null || wrong "the replay failed"
cmp live.json replayed.json || wrong "the replay's figures are others"
pitcharena picture match.rec -o match.svg || wrong "no picture"
grep -q '</svg>' match.svg || wrong "the picture is none"
echo "trial: it was told again with the same figures, and drawn"

pitcharena replay match.rec --view --view-port 8300 >view.txt &
viewer=$!
for ((tries = 0; tries < 200; tries++)); do
  grep -q 'watch it at ' view.txt && break
  sleep 0.1
done
if grep -q "won't work" view.txt; then cat view.txt; wrong "the page lacks something"; fi
for target in / /main.js /style.css /three.module.js; do
  answer=$(fetch 8300 "$target") || wrong "no page at $target"
  [[ $answer == 'HTTP/1.1 200 '* ]] || wrong "the page's server has no $target"
done
kill -INT "$viewer"
wait "$viewer" || wrong "the viewer ended badly"
echo "trial: the page to watch on was served, with three.js"

pitchmotion check /usr/share/pitchagent/scripts/*.txt || wrong "a script has a fault"
pitchmotion generate kick || wrong "no scripts of the kick"
for script in scripts/*.txt; do
  cmp "$script" "/usr/share/pitchagent/$script" || wrong "$script is another than the installed one"
done
rm -r scripts
pitchmotion play kickR --svg kick.svg || wrong "the kick was not played"
echo "trial: scripts were checked, written and played"

for page in pitchagent.1 pitcharena.1 pitchmotion.1 pitch-play.1 pitch-team.1 pitchagent-scripts.5; do
  [[ -s /usr/share/man/man${page##*.}/$page.gz ]] || wrong "no page $page"
done
for text in README.md copyright changelog.gz changelog.Debian.gz docs/architecture.md; do
  [[ -s /usr/share/doc/pitchagent/$text ]] || wrong "no $text"
done
echo "trial: manual pages and documents are there"
