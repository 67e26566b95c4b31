#!/usr/bin/env bash
# What the pages say of the tree: that what they name is there, and that their tables are those of
# the build.
. "$(dirname "${BASH_SOURCE[0]}")/../commands/support.sh"

cd "$root" || exit 1

# Every page that a reader is sent to: those at the top, docs/ and the signs of the folders.
pages() {
  find . \( -path ./build -o -path ./logs -o -path './.*' \) -prune -o -name '*.md' -print |
    sed 's|^\./||' | LC_ALL=C sort
}

# The targets of the links and pictures of PAGE, one a line, code blocks left out.
links_of() {
  awk '/^```/ { code = !code } !code' "$1" | grep -oE '\]\([^)[:space:]]+\)' | sed 's/^](//; s/)$//'
}

# The anchors of PAGE's headings, as sites that show Markdown make them.
anchors_of() {
  awk '/^```/ { code = !code } !code' "$1" | sed -nE 's/^#+ +//p' |
    tr '[:upper:]' '[:lower:]' | tr -cd '[:alnum:] \n_-' | tr ' ' '-'
}

LinksLeadToWhatIsThere() {
  local page target file anchor links=0
  while read -r page; do
    while read -r target; do
      [[ $target != http* ]] || continue
      links=$((links + 1))
      file=${target%%#*}
      anchor=${target#"$file"}
      file=${file:+$(dirname "$page")/$file}
      file=${file:-$page}
      [[ -e $file ]] || flunk "$page links to $target, which is not there"
      [[ -z $anchor ]] || anchors_of "$file" | grep -xF -e "${anchor#\#}" >"$temp/out" ||
        flunk "$page links to $target: no such heading"
    done < <(links_of "$page")
  done < <(pages)
  ((links > 20)) || flunk "only $links links found"
}

# What stands in back quotes on standard input, a line each.
quoted() {
  # shellcheck disable=SC2016  # they are back quotes and nothing else
  grep -oE '`[^`]+`' | tr -d '`'
}

# The words in back quotes of PAGE that name a file or folder: with a slash or an ending that sources
# have, and nothing that stands for something else.
named_files() {
  awk '/^```/ { code = !code } !code' "$1" | quoted |
    grep -E '^[A-Za-z0-9_.][A-Za-z0-9_./*-]*$' |
    grep -E '/|\.(md|txt|cpp|h|sh|js|json|svg|png|cmake|supp|awk)$' |
    grep -vE '^(build|logs)/|^/|[0-9]/[0-9]|NAME'
}

# exists NAME PAGE: from the top, from the page's folder, among the scripts, or, for a name without a
# folder, anywhere.
exists() {
  compgen -G "$1" >/dev/null || compgen -G "$(dirname "$2")/$1" >/dev/null ||
    compgen -G "scripts/$1" >/dev/null ||
    { [[ $1 != */* ]] && grep -qE -e "(^|/)${1//./\\.}\$" "$temp/files"; }
}

NamedFilesAreThere() {
  find . \( -path ./build -o -path ./logs -o -path ./.git \) -prune -o -type f -print >"$temp/files"
  local page name names=0
  while read -r page; do
    while read -r name; do
      names=$((names + 1))
      exists "$name" "$page" || flunk "$page names $name, which is not there"
    done < <(named_files "$page")
  done < <(pages | grep -E '^(README|CHANGELOG)\.md$|^docs/')
  ((names > 50)) || flunk "only $names names found"
}

# "library dependency" for every edge in the block of the topmost CMakeLists.txt, and "library -".
edges_of_the_build() {
  awk '/^pitch_edges\(/ { inside = 1 }
       inside { ends = /\)/; gsub(/pitch_edges\(|\)/, " "); text = text " " $0 }
       inside && ends {
         count = split(text, words, " ")
         print words[1], "-"
         for (i = 2; i <= count; i++) print words[1], words[i]
         inside = 0; text = "" }' CMakeLists.txt | LC_ALL=C sort
}

# The same from the table of libraries: "player: math, body; arena: model".
edges_of_the_page() {
  awk -F' *[|] *' '
    $2 == "Library" { inside = 1; next }
    inside && !/^\|/ { exit }
    inside && /^\| `/ {
      library = $2; gsub(/`/, "", library)
      print library, "-"
      if ($5 == "nothing") next
      groups = split($5, group, /; */)
      for (g = 1; g <= groups; g++) {
        split(group[g], parts, /: */)
        names = split(parts[2], name, /, */)
        for (n = 1; n <= names; n++) print library, parts[1] "_" name[n]
      }
    }' docs/architecture.md | LC_ALL=C sort
}

ArchitectureAllowsWhatTheBuildAllows() {
  edges_of_the_build >"$temp/build"
  edges_of_the_page >"$temp/page"
  (($(wc -l <"$temp/build") > 60)) || flunk "too few edges in CMakeLists.txt"
  diff -u "$temp/build" "$temp/page" >"$temp/out" ||
    flunk "docs/architecture.md (+) and CMakeLists.txt (-) allow different includes"
}

ArchitectureNamesEachLibrarysFolder() {
  local library folder
  while IFS='|' read -r _ library folder _; do
    library=$(tr -d ' `' <<<"$library")
    folder=$(tr -d ' `' <<<"$folder")
    grep -qE "pitch_library\($library( |\$)" "$folder/CMakeLists.txt" ||
      flunk "$library is not built in $folder"
  done < <(grep -E '^\| `[a-z]+_' docs/architecture.md)
}

# "package group" for each row of README's table of packages.
packages_of_the_readme() {
  awk -F' *[|] *' '$2 == "Package" { inside = 1; next }
             inside && !/^\|/ { exit }
             inside && /^\| `/ && $4 != "" { gsub(/`/, "", $2); print $2, $3 }' README.md | LC_ALL=C sort
}

EachPackageHasOneReasonInTheReadme() {
  awk '$1 !~ /^#/ && NF { print $1, $2 }' cmake/packages.txt | LC_ALL=C sort >"$temp/list"
  packages_of_the_readme >"$temp/readme"
  [[ -s $temp/readme ]] || flunk "no table of packages in README.md"
  diff -u "$temp/list" "$temp/readme" >"$temp/out" ||
    flunk "README.md (+) and cmake/packages.txt (-) tell of different packages"
}

EachListedPackageHasAReason() {
  awk '$1 !~ /^#/ && NF && NF < 3' cmake/packages.txt >"$temp/out"
  expect_empty out
}

ChangelogBeginsWithTheProjectsVersion() {
  local version
  version=$(sed -nE 's/^project\(pitchagent VERSION ([0-9.]+).*/\1/p' CMakeLists.txt)
  [[ -n $version ]] || flunk "no version in CMakeLists.txt"
  awk '/^## \[/ && !/^## \[Unreleased\]/ { print; exit }' CHANGELOG.md >"$temp/out"
  grep -qF "## [$version] - " "$temp/out" || flunk "CHANGELOG.md does not begin with $version"
}

EveryPageOfTheDocumentsIsOnTheirSign() {
  local file
  for file in docs/*; do
    file=${file#docs/}
    [[ $file == README.md ]] || grep -qF -e "\`$file" docs/README.md ||
      flunk "docs/README.md does not tell of $file"
  done
}

"$1"
