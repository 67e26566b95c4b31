# The work of tools/check-includes. Input: the CMakeLists.txt files, then the sources.

# Says what is wrong, as FILE:LINE: TEXT, and remembers that something is.
function complain(text) {
  print FILENAME ":" FNR ": " text
  found = 1
}

# The folder of FILE with a slash behind it; empty for a file at the top.
function folder(file) {
  return match(file, /^.*\//) ? substr(file, 1, RLENGTH) : ""
}

# Takes in one word of a pitch_... call: the first names the target, capitals open a list.
function take_word(word) {
  if (target == "") {
    target = word
    if (call == "pitch_library") is_library[word] = 1
  } else if (call == "pitch_edges") {
    edge[target, word] = 1
  } else if (word ~ /^(SOURCES|HEADERS|LINK)$/) {
    list = word
  } else if (list == "LINK") {
    linked[++links] = word
    link_user[links] = target
    link_place[links] = FILENAME ":" FNR
    if (call == "pitch_program") edge[target, word] = 1
  } else {
    owner[folder(FILENAME) word] = target
  }
}

function take_list_line(line,    words, count, i, ends) {
  sub(/#.*/, "", line)
  if (call == "" && match(line, /^[ \t]*pitch_(library|program|edges)\(/)) {
    call = substr(line, 1, RLENGTH - 1)
    gsub(/[ \t]/, "", call)
    line = substr(line, RLENGTH + 1)
    target = list = ""
  }
  if (call == "") return
  ends = sub(/\).*/, "", line)
  count = split(line, words, " ")
  for (i = 1; i <= count; i++) take_word(words[i])
  if (ends) call = ""
}

# An edge between two libraries belongs into the one block that shows them all.
function check_links(    i) {
  for (i = 1; i <= links; i++) {
    if (is_library[link_user[i]] && is_library[linked[i]]) {
      print link_place[i] ": " link_user[i] " -> " linked[i] " belongs into pitch_edges at the top"
      found = 1
    }
  }
}

# True if a way along the edges leads from one target to another.
function reaches(from, to,    seen) {
  return walk(from, to, seen)
}

function walk(from, to, seen,    key, ends) {
  if (from == to) return 1
  seen[from] = 1
  for (key in edge) {
    split(key, ends, SUBSEP)
    if (ends[1] == from && !(ends[2] in seen) && walk(ends[2], to, seen)) return 1
  }
  return 0
}

# A library needs the edge itself. A program only puts libraries together, and nothing stands above
# it: it may include what it links, be it through another library.
function may_include(from, to) {
  if (from == "" || from == to) return 1
  return is_library[from] ? (from, to) in edge : reaches(from, to)
}

# The target that a file belongs to, or nothing. A program lists no headers: they go with the source
# of the same name.
function owner_of(file,    source) {
  if (file in owner) return owner[file]
  source = file
  if (!sub(/\.h$/, ".cpp", source) || !(source in owner) || is_library[owner[source]]) return ""
  return owner[source]
}

function check_include(header,    from, to) {
  from = owner_of(FILENAME)
  to = owner_of(header)
  if (to == "") {
    complain("\"" header "\" is no header of a library")
  } else if (!may_include(from, to)) {
    complain("\"" header "\" needs an edge " from " -> " to)
  }
}

FILENAME ~ /CMakeLists\.txt$/ { take_list_line($0); next }

!links_checked { check_links(); links_checked = 1 }

FNR == 1 && owner_of(FILENAME) == "" { complain("no CMakeLists.txt builds this file") }

match($0, /^[ \t]*#[ \t]*include[ \t]*"/) {
  header = substr($0, RLENGTH + 1)
  sub(/".*/, "", header)
  check_include(header)
}

END { exit found }
