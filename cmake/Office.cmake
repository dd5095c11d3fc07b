# cotirama_uno: what speaks to the office through its component interface links it. It is there
# where Debian's libreoffice-dev is installed, and nowhere else.
set(office /usr/lib/libreoffice)
find_program(COTIRAMA_CPPUMAKER cppumaker PATHS ${office}/sdk/bin NO_DEFAULT_PATH)
find_path(COTIRAMA_OFFICE_SDK sal/types.h PATHS ${office}/sdk/include NO_DEFAULT_PATH)
find_path(COTIRAMA_OFFICE types/offapi.rdb PATHS ${office}/program NO_DEFAULT_PATH)
if(NOT COTIRAMA_CPPUMAKER OR NOT COTIRAMA_OFFICE_SDK OR NOT COTIRAMA_OFFICE)
  message(STATUS "No libreoffice-dev here: the link to the spreadsheet is not built")
  return()
endif()

# Headers of these interfaces and of all that they name, out of the office's own tables.
set(types beans.XPropertySet bridge.UnoUrlResolver connection.NoConnectException
  container.XEnumerationAccess container.XIndexAccess container.XNameAccess container.XNamed
  document.XUndoManagerSupplier frame.XDesktop lang.XComponent lang.XMultiComponentFactory
  lang.XMultiServiceFactory sheet.XCellRangeAddressable sheet.XCellRangeData
  sheet.XSheetCellRangeContainer sheet.XSpreadsheet sheet.XSpreadsheetDocument text.XText
  uno.DeploymentException uno.XComponentContext uno.XWeak util.XCloseable)
list(TRANSFORM types PREPEND -Tcom.sun.star.)
set(tables ${COTIRAMA_OFFICE}/types.rdb ${COTIRAMA_OFFICE}/types/offapi.rdb)
set(headers ${PROJECT_BINARY_DIR}/office)
add_custom_command(OUTPUT ${headers}/made
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${headers}
  COMMAND ${COTIRAMA_CPPUMAKER} -Gc -O${headers} ${types} ${tables}
  COMMAND ${CMAKE_COMMAND} -E touch ${headers}/made
  DEPENDS ${COTIRAMA_CPPUMAKER} ${tables} ${CMAKE_CURRENT_LIST_FILE}
  COMMENT "Headers of the office's interfaces" VERBATIM)
add_custom_target(office_headers DEPENDS ${headers}/made)

add_library(cotirama_uno INTERFACE)
add_dependencies(cotirama_uno office_headers)
target_include_directories(cotirama_uno SYSTEM INTERFACE ${headers} ${COTIRAMA_OFFICE_SDK})
target_compile_definitions(cotirama_uno INTERFACE UNX GCC LINUX CPPU_ENV=gcc3
  COTIRAMA_OFFICE="${COTIRAMA_OFFICE}")
foreach(library cppuhelpergcc3 cppu sal salhelpergcc3)
  target_link_libraries(cotirama_uno INTERFACE ${office}/sdk/lib/libuno_${library}.so)
endforeach()
target_link_options(cotirama_uno INTERFACE -Wl,-rpath,${COTIRAMA_OFFICE})
# Objects of the office have tables of functions, but no types that a sanitizer could look at.
set_target_properties(cotirama_uno PROPERTIES
  COMPATIBLE_INTERFACE_BOOL COTIRAMA_UNO INTERFACE_COTIRAMA_UNO ON)
