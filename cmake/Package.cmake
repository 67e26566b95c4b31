# The Debian package. `tools/package` makes it; a bare `cpack` in a build works too.

set(PITCH_MAINTAINER "The pitchagent developers <pitchagent@packages.invalid>" CACHE STRING
  "Who answers for the Debian package: NAME <ADDRESS>")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pitchagent)
set(CPACK_PACKAGE_CONTACT "${PITCH_MAINTAINER}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_RESOURCE_FILE_LICENSE ${CMAKE_SOURCE_DIR}/LICENSE)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
# Not games: those lie in /usr/games, and these are called from everybody's scripts.
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# The libraries come from what the programs are linked to. The viewer's page needs three.js. The
# launchers' bash, coreutils, findutils, grep and util-linux are on every Debian system.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS libjs-three)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "autonomous player of simulated humanoid soccer")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"One process is one player: it connects by TCP to a 3-D soccer simulation
server, gets a humanoid robot of 22 joints there, and plays. Six of them are
a team.

The package also holds pitcharena, a training ground that stands in for the
server, so that one machine is enough, with a page on which a match is
watched in a browser; pitchmotion, the workshop that checks, plays, judges
and tunes the players' motion scripts; and two launchers, pitch-play for a
match on this machine and pitch-team for a team on another server.")

include(CPack)
