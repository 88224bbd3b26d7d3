include(CMakeFindDependencyMacro)
find_dependency(Qt6 6.4 COMPONENTS Widgets)
include(${CMAKE_CURRENT_LIST_DIR}/QuorvanePictureTargets.cmake)
