# From the reasons for lines that no test reaches ("FILE: why"), gcovr's CSV and gcovr's text: a table
# of the folders and a list of the player's lines that are not reached. PLAYER: its folders, "a|b".
# Status 1: a folder of the player is below the bar and has lines without a reason.

BEGIN {
  FS = ","
  bar = 95
  split(player, names, "|")
  for (i in names) is_player[names[i]] = 1
}

FNR == 1 { part++ }

part == 1 && /^[^#]/ && match($0, /: */) {
  reason[substr($0, 1, RSTART - 1)] = substr($0, RSTART + RLENGTH)
}

part == 2 && FNR > 1 {
  folder = $1
  sub(/\/[^\/]*$/, "", folder)
  if (!(folder in lines)) order[++folders] = folder
  lines[folder] += $2
  reached[folder] += $3
  branches[folder] += $5
  taken[folder] += $6
}

# A name that is too long for its column has a line of its own.
part == 3 {
  if ($0 ~ /^[a-z]+\/[^ ]+\.(cpp|h) *$/) { file = $1; sub(/ *$/, "", file); next }
  text = $0
  if (match(text, /^[a-z]+\/[^ ]+\.(cpp|h) /)) { file = substr(text, 1, RLENGTH - 1); text = substr(text, RLENGTH) }
  else if (text !~ /^ /) next
  if (match(text, /% +[0-9]/)) missed[file] = substr(text, RSTART + RLENGTH - 1)
}

function percent(some, all) {
  return all ? sprintf("%.1f %%", 100 * some / all) : "-"
}

function row(name, l, r, b, t) {
  printf "| %s | %d of %d | %s | %d of %d | %s |\n", name, r, l, percent(r, l), t, b, percent(t, b)
}

END {
  print "\n| folder | lines reached | | branches taken | |\n|---|---|---|---|---|"
  for (i = 1; i <= folders; ++i) {
    folder = order[i]
    row(folder "/", lines[folder], reached[folder], branches[folder], taken[folder])
    own = folder in is_player
    l[own] += lines[folder]; r[own] += reached[folder]
    b[own] += branches[folder]; t[own] += taken[folder]
  }
  row("**the player**", l[1], r[1], b[1], t[1])
  row("the rest", l[0], r[0], b[0], t[0])

  print "\n## Lines of the player that no test reaches\n"
  for (file in missed) {
    folder = file
    sub(/\/[^\/]*$/, "", folder)
    if (!(folder in is_player)) continue
    listed[++files] = file
    if (!(file in reason)) unexplained[folder] = 1
  }
  for (i = 2; i <= files; ++i)
    for (j = i; j > 1 && listed[j] < listed[j - 1]; --j) {
      file = listed[j]; listed[j] = listed[j - 1]; listed[j - 1] = file
    }
  if (!files) print "None."
  else print "| file | lines | why |\n|---|---|---|"
  for (i = 1; i <= files; ++i) {
    file = listed[i]
    gsub(/,/, ", ", missed[file])
    printf "| %s | %s | %s |\n", file, missed[file], file in reason ? reason[file] : "-"
  }
  for (folder in is_player)
    if (lines[folder] && reached[folder] * 100 < bar * lines[folder] && folder in unexplained) bad = 1
  exit bad
}
