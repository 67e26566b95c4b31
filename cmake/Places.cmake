# Where things lie. The programs look for their data from their own folder (data/DataFolder.h), so
# the way from there to the data is all that is compiled in; a build has links at its end.

include(GNUInstallDirs)

set(PITCH_DATADIR ${CMAKE_INSTALL_DATADIR}/pitchagent)
file(RELATIVE_PATH PITCH_DATA_FROM_PROGRAM
  ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DATADIR}/pitchagent)
if(NOT PITCH_DATA_FROM_PROGRAM MATCHES "^\\.\\./[^.]")
  message(FATAL_ERROR "CMAKE_INSTALL_BINDIR must be a folder of the prefix, and "
    "CMAKE_INSTALL_DATADIR below the prefix: ${PITCH_DATA_FROM_PROGRAM} leads out of it")
endif()

# The parts one by one: a link to the whole tree would lead round in a circle.
cmake_path(SET folder NORMALIZE ${CMAKE_BINARY_DIR}/bin/${PITCH_DATA_FROM_PROGRAM})
file(MAKE_DIRECTORY ${folder})
foreach(part scripts viewer workshop)
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${part} ${folder}/${part} SYMBOLIC)
endforeach()
unset(folder)
