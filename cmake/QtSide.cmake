# Heavy headers that nearly every file of the Qt side includes.
set(COTIRAMA_QT_HEADERS
  <QAbstractTableModel> <QApplication> <QComboBox> <QDialog> <QHeaderView> <QLabel> <QLineEdit>
  <QMainWindow> <QMdiArea> <QMdiSubWindow> <QMenu> <QMenuBar> <QMessageBox> <QPainter>
  <QPushButton> <QString> <QStyledItemDelegate> <QTableView> <QTcpServer> <QTcpSocket> <QTimer>
  <QToolBar> <QVBoxLayout> <algorithm> <functional> <memory> <string> <string_view> <vector>
  CACHE INTERNAL "")

# cotirama_qt_side(TARGET)
#
# What only the library of the Qt side needs: moc, precompiled headers, and the embedded fonts,
# translation of the standard dialogs and user's guide, so that the executable runs from any
# directory.
function(cotirama_qt_side target)
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "INTERFACE_LIBRARY")
    return()
  endif()
  set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOGEN_ORIGIN_DEPENDS OFF)
  target_compile_definitions(${target} PUBLIC QT_NO_KEYWORDS)
  target_precompile_headers(${target} PRIVATE ${COTIRAMA_QT_HEADERS})

  get_target_property(qmake Qt6::qmake IMPORTED_LOCATION)
  execute_process(COMMAND ${qmake} -query QT_INSTALL_TRANSLATIONS
    OUTPUT_VARIABLE translations OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  find_file(COTIRAMA_QTBASE_ES qtbase_es.qm PATHS ${translations} NO_DEFAULT_PATH REQUIRED)
  find_path(COTIRAMA_ROBOTO Roboto-Regular.ttf REQUIRED NO_DEFAULT_PATH
    PATHS /usr/share/fonts/truetype/roboto/unhinted/RobotoTTF)
  find_path(COTIRAMA_DEJAVU DejaVuSansMono.ttf REQUIRED NO_DEFAULT_PATH
    PATHS /usr/share/fonts/truetype/dejavu)

  # As they are: the program starts faster when nothing has to be expanded.
  set(entries "  <file compress-algo=\"none\" alias=\"i18n/qtbase_es.qm\">${COTIRAMA_QTBASE_ES}</file>\n")
  foreach(face Regular Medium)
    string(APPEND entries
      "  <file compress-algo=\"none\" alias=\"fonts/Roboto-${face}.ttf\">${COTIRAMA_ROBOTO}/Roboto-${face}.ttf</file>\n")
  endforeach()
  file(GLOB pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/manual/*.html
    ${PROJECT_SOURCE_DIR}/docs/manual/*.css ${PROJECT_SOURCE_DIR}/docs/manual/*.png)
  foreach(page ${pages})
    cmake_path(GET page FILENAME name)
    string(APPEND entries
      "  <file compress-algo=\"none\" alias=\"manual/${name}\">${page}</file>\n")
  endforeach()
  # Loaded with the first page, not at the start.
  string(APPEND entries
    "  <file threshold=\"20\" alias=\"fonts/DejaVuSansMono.ttf\">${COTIRAMA_DEJAVU}/DejaVuSansMono.ttf</file>\n")
  set(qrc ${CMAKE_CURRENT_BINARY_DIR}/embedded.qrc)
  file(CONFIGURE OUTPUT ${qrc} CONTENT "<RCC><qresource>\n@entries@</qresource></RCC>\n" @ONLY)

  # An object library: the linker would drop the resource's initialiser from an archive.
  add_library(${target}_embedded OBJECT ${qrc})
  set_target_properties(${target}_embedded PROPERTIES AUTORCC ON)
  target_link_libraries(${target}_embedded PRIVATE Qt6::Core)
  target_sources(${target} INTERFACE $<TARGET_OBJECTS:${target}_embedded>)
endfunction()
