# What `cmake --install` puts where. The data folder has the shape of the source tree, so the
# launchers, which lie in it too, find their parts there as they do here.

install(TARGETS pitchagent pitcharena pitchmotion)

install(DIRECTORY scripts DESTINATION ${PITCH_DATADIR} FILES_MATCHING PATTERN *.txt)
install(DIRECTORY viewer/page DESTINATION ${PITCH_DATADIR}/viewer
  PATTERN README.md EXCLUDE)
install(DIRECTORY workshop/parameters DESTINATION ${PITCH_DATADIR}/workshop
  FILES_MATCHING PATTERN *.json)

# ./play and ./team, with another answer to where the programs are.
file(RELATIVE_PATH PITCH_PROGRAMS_FROM_DATA
  ${CMAKE_INSTALL_FULL_DATADIR}/pitchagent ${CMAKE_INSTALL_FULL_BINDIR})
configure_file(packaging/programs.sh.in ${CMAKE_BINARY_DIR}/installed/programs.sh @ONLY)
install(PROGRAMS play team DESTINATION ${PITCH_DATADIR})
install(FILES tools/shell/manners.sh tools/shell/children.sh
  ${CMAKE_BINARY_DIR}/installed/programs.sh DESTINATION ${PITCH_DATADIR}/tools/shell)
foreach(command play team)
  file(CREATE_LINK ${PITCH_DATA_FROM_PROGRAM}/${command}
    ${CMAKE_BINARY_DIR}/installed/pitch-${command} SYMBOLIC)
  install(FILES ${CMAKE_BINARY_DIR}/installed/pitch-${command} TYPE BIN)
endforeach()

install(FILES README.md TYPE DOC)
install(DIRECTORY docs TYPE DOC PATTERN man EXCLUDE)

# compressed(FILE RESULT): packs FILE into the build, without its name and time, and has RESULT name
# what comes out. The target `documents` makes all of these.
function(compressed file result)
  cmake_path(GET file FILENAME name)
  set(packed ${CMAKE_BINARY_DIR}/installed/${name}.gz)
  add_custom_command(OUTPUT ${packed}
    COMMAND sh -c "gzip -9 -n -c \"$1\" >\"$2\"" sh ${CMAKE_SOURCE_DIR}/${file} ${packed}
    DEPENDS ${CMAKE_SOURCE_DIR}/${file} VERBATIM)
  set_property(TARGET documents APPEND PROPERTY SOURCES ${packed})
  set(${result} ${packed} PARENT_SCOPE)
endfunction()

add_custom_target(documents ALL)
foreach(page pitchagent.1 pitcharena.1 pitchmotion.1 pitch-play.1 pitch-team.1 pitchagent-scripts.5)
  string(REGEX MATCH "[0-9]$" section ${page})
  compressed(docs/man/${page} packed)
  install(FILES ${packed} DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section})
endforeach()

# As Debian wants them; of use to anybody who looks there.
install(FILES packaging/copyright TYPE DOC)
compressed(CHANGELOG.md packed)
install(FILES ${packed} TYPE DOC RENAME changelog.gz)
compressed(packaging/changelog packed)
install(FILES ${packed} TYPE DOC RENAME changelog.Debian.gz)
install(FILES packaging/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
  RENAME pitchagent)
