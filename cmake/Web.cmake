# The web view of the browser window, as a plugin of the terminal: built where Qt WebEngine is
# there. The terminal doesn't link it.
find_package(Qt6 6.4 QUIET COMPONENTS WebEngineWidgets)
if(NOT Qt6WebEngineWidgets_FOUND)
  message(STATUS "No Qt WebEngine: pages will open in the desktop's browser")
  return()
endif()

file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/web/*.cpp ${PROJECT_SOURCE_DIR}/src/web/*.h)
add_library(cotirama-web MODULE ${sources})
target_include_directories(cotirama-web PRIVATE ${PROJECT_SOURCE_DIR}/src)
target_compile_definitions(cotirama-web PRIVATE QT_NO_KEYWORDS)
target_link_libraries(cotirama-web PRIVATE Qt6::WebEngineWidgets cotirama_flags)
set_target_properties(cotirama-web PROPERTIES AUTOMOC ON PREFIX "" SUFFIX ".so"
  LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
