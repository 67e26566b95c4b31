# MuJoCo::MuJoCo, the physics engine's library and headers.
#
# The package's own configuration asks for OpenGL and names folders of other libraries' headers;
# neither is needed without a window, and a machine without a desktop has neither.
find_path(MuJoCo_INCLUDE_DIR mujoco/mujoco.h)
find_library(MuJoCo_LIBRARY mujoco)
mark_as_advanced(MuJoCo_INCLUDE_DIR MuJoCo_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(MuJoCo REQUIRED_VARS MuJoCo_LIBRARY MuJoCo_INCLUDE_DIR)

if(MuJoCo_FOUND AND NOT TARGET MuJoCo::MuJoCo)
  add_library(MuJoCo::MuJoCo UNKNOWN IMPORTED)
  set_target_properties(MuJoCo::MuJoCo PROPERTIES
    IMPORTED_LOCATION ${MuJoCo_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${MuJoCo_INCLUDE_DIR})
endif()
