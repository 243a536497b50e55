# Makes Quillary.app of the program: its information, its icon, and the target "deploy" that puts the libraries inside
# and signs it.

set(QUILLARY_SIGNING_IDENTITY "-" CACHE STRING "Identity that \"deploy\" signs with; - signs without one")

# After linking: as a source of the program, the icon would be in the way of compiling its files elsewhere.
set(icon_source ${PROJECT_SOURCE_DIR}/packaging/quillary.svg)
set_target_properties(quillary PROPERTIES LINK_DEPENDS ${icon_source})
add_custom_command(TARGET quillary POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E make_directory $<TARGET_BUNDLE_CONTENT_DIR:quillary>/Resources
  COMMAND ${CMAKE_CURRENT_LIST_DIR}/make-icon-set ${icon_source}
          $<TARGET_BUNDLE_CONTENT_DIR:quillary>/Resources/Quillary.icns
  VERBATIM)

set_target_properties(quillary PROPERTIES
  MACOSX_BUNDLE ON
  OUTPUT_NAME Quillary
  MACOSX_BUNDLE_INFO_PLIST ${CMAKE_CURRENT_LIST_DIR}/Info.plist.in
  MACOSX_BUNDLE_BUNDLE_NAME Quillary
  MACOSX_BUNDLE_GUI_IDENTIFIER org.quillary.Quillary
  MACOSX_BUNDLE_ICON_FILE Quillary
  MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION}
  MACOSX_BUNDLE_BUNDLE_VERSION ${PROJECT_VERSION})

find_program(QUILLARY_MACDEPLOYQT macdeployqt HINTS ${Qt6_DIR}/../../../bin)
if(QUILLARY_MACDEPLOYQT)
  add_custom_target(deploy
    COMMAND ${QUILLARY_MACDEPLOYQT} $<TARGET_BUNDLE_DIR:quillary>
    COMMAND codesign --force --deep --options runtime --entitlements ${CMAKE_CURRENT_LIST_DIR}/Quillary.entitlements
            --sign ${QUILLARY_SIGNING_IDENTITY} $<TARGET_BUNDLE_DIR:quillary>
    DEPENDS quillary
    COMMENT "Putting the libraries into the bundle and signing it"
    VERBATIM)
else()
  message(STATUS "No macdeployqt: there is no target \"deploy\"")
endif()
