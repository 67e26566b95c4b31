#!/usr/bin/env bash
# tools/check-includes on small trees made for the purpose, sound ones and broken ones.
. "$(dirname "${BASH_SOURCE[0]}")/support.sh"

tree=$temp/tree

# put FILE: its text comes on standard input.
put() {
  mkdir -p "$(dirname "$tree/$1")"
  cat >"$tree/$1"
}

# Two libraries, the upper one allowed to include the lower one, and a program on top.
sound_tree() {
  put CMakeLists.txt <<'EOF'
pitch_edges(low)
pitch_edges(high   low)  # pitch_edges(low high) in a comment allows nothing
EOF
  put low/CMakeLists.txt <<'EOF'
pitch_library(low SOURCES Low.cpp HEADERS Low.h)
EOF
  put high/CMakeLists.txt <<'EOF'
pitch_library(high
  SOURCES High.cpp   # the body
  HEADERS High.h
  LINK Some::thing)
pitch_program(tool SOURCES main.cpp LINK high)
EOF
  put low/Low.h <<<'#pragma once'
  put low/Low.cpp <<<'#include "low/Low.h"'
  put high/High.h <<<'#include "low/Low.h"'
  put high/High.cpp <<<'#include "high/High.h"'
  printf '#include <vector>\n\n#include "high/High.h"\n#include "low/Low.h"\n' | put high/main.cpp
}

check() {
  run "$root/tools/check-includes" "$tree"
}

# expect_finding LINE: that is all that is said.
expect_finding() {
  expect_status 1
  [[ $(cat "$temp/out") == "$1" ]] || flunk "said '$(cat "$temp/out")' instead of '$1'"
}

SoundTreeIsPassedInSilence() {
  sound_tree
  check
  expect_status 0
  expect_empty out
  expect_empty err
}

IncludeWithoutEdgeIsNamedByFileAndLine() {
  sound_tree
  printf '#include "low/Low.h"\n\n#include "high/High.h"\n' | put low/Low.cpp
  check
  expect_finding 'low/Low.cpp:3: "high/High.h" needs an edge low -> high'
}

OddlySpacedIncludeIsSeen() {
  sound_tree
  printf '  #  include"high/High.h" // why not\n' | put low/Low.h
  check
  expect_finding 'low/Low.h:1: "high/High.h" needs an edge low -> high'
}

EdgeThroughAnotherLibraryIsNoEdge() {
  sound_tree
  printf 'pitch_edges(high low)\npitch_edges(top high)\n' | put CMakeLists.txt
  put top/CMakeLists.txt <<<'pitch_library(top SOURCES Top.cpp)'
  put top/Top.cpp <<<'#include "low/Low.h"'
  check
  expect_finding 'top/Top.cpp:1: "low/Low.h" needs an edge top -> low'
}

TwoLibrariesInOneFolderAreTwo() {
  sound_tree
  printf '%s\n' 'pitch_library(low SOURCES Low.cpp HEADERS Low.h)' \
    'pitch_library(beside HEADERS Beside.h)' | put low/CMakeLists.txt
  put low/Beside.h <<<'#include "low/Low.h"'
  check
  expect_finding 'low/Beside.h:1: "low/Low.h" needs an edge beside -> low'
}

ProgramMayNotReachBeyondWhatItLinks() {
  sound_tree
  put low/CMakeLists.txt <<'EOF'
pitch_library(low SOURCES Low.cpp HEADERS Low.h)
pitch_program(small SOURCES small.cpp LINK low)
EOF
  put low/small.cpp <<<'#include "high/High.h"'
  check
  expect_finding 'low/small.cpp:1: "high/High.h" needs an edge small -> high'
}

HeaderOfAProgramGoesWithItsSource() {
  sound_tree
  printf '#include "high/Ways.h"\n#include "low/Low.h"\n' | put high/Ways.cpp
  put high/Ways.h <<<'#pragma once'
  put high/CMakeLists.txt <<'EOF'
pitch_library(high SOURCES High.cpp HEADERS High.h)
pitch_program(tool SOURCES main.cpp Ways.cpp LINK high)
EOF
  check
  expect_status 0
  put high/High.cpp <<<'#include "high/Ways.h"'
  check
  expect_finding 'high/High.cpp:1: "high/Ways.h" needs an edge high -> tool'
}

UnlistedHeaderOfALibraryIsFound() {
  sound_tree
  put low/CMakeLists.txt <<<'pitch_library(low SOURCES Low.cpp)'
  put high/High.h <<<''
  printf '\n' | put high/main.cpp
  put low/Low.cpp <<<''
  check
  expect_finding 'low/Low.h:1: no CMakeLists.txt builds this file'
}

EdgeHiddenInALinkListIsFound() {
  sound_tree
  put low/CMakeLists.txt <<'EOF'
pitch_library(low SOURCES Low.cpp HEADERS Low.h
  LINK high)
EOF
  check
  expect_finding 'low/CMakeLists.txt:2: low -> high belongs into pitch_edges at the top'
}

FileThatNobodyBuildsIsFound() {
  sound_tree
  put low/Forgotten.cpp <<<'#include "low/Low.h"'
  check
  expect_finding 'low/Forgotten.cpp:1: no CMakeLists.txt builds this file'
}

HeaderOfNoLibraryIsFound() {
  sound_tree
  put high/High.h <<<'#include "Low.h"'
  check
  expect_finding 'high/High.h:1: "Low.h" is no header of a library'
}

ThisProjectIsSound() {
  run "$root/tools/check-includes"
  expect_status 0
  expect_empty out
}

"$1"
