# The Windows programs need Qt's libraries and plugins and the compiler's
# run-time libraries beside them; the installer carries them.
get_filename_component(SIDEKIN_QT_PREFIX "${Qt6_DIR}/../../.." ABSOLUTE)
set(SIDEKIN_QT_DLLS Core Gui Widgets Network PrintSupport)
list(TRANSFORM SIDEKIN_QT_DLLS REPLACE "(.+)" "${SIDEKIN_QT_PREFIX}/bin/Qt6\\1.dll")

set(SIDEKIN_RUNTIME_DLLS)
foreach(dll libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll}
                  OUTPUT_VARIABLE found OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT EXISTS "${found}")
    message(FATAL_ERROR "The compiler's run-time library ${dll} was not found")
  endif()
  list(APPEND SIDEKIN_RUNTIME_DLLS "${found}")
endforeach()

install(FILES ${SIDEKIN_QT_DLLS} ${SIDEKIN_RUNTIME_DLLS} DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${SIDEKIN_QT_PREFIX}/plugins/platforms/qwindows.dll
        DESTINATION ${CMAKE_INSTALL_BINDIR}/platforms)
install(DIRECTORY ${SIDEKIN_QT_PREFIX}/plugins/styles ${SIDEKIN_QT_PREFIX}/plugins/printsupport
        DESTINATION ${CMAKE_INSTALL_BINDIR} OPTIONAL)
# Only the programs are stripped by CPack; the libraries beside them are
# stripped where they were installed (the run-time library alone loses 17 MB).
install(CODE "
  file(GLOB_RECURSE dlls \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/*.dll\")
  foreach(dll IN LISTS dlls)
    execute_process(COMMAND \"${CMAKE_STRIP}\" --strip-unneeded \"\${dll}\" COMMAND_ERROR_IS_FATAL ANY)
  endforeach()")

set(CPACK_GENERATOR NSIS)
# A 64-bit installer: Debian's Wine runs 64-bit programs only, and so do the programs it installs.
set(CPACK_NSIS_DEFINES "Target amd64-unicode")
set(CPACK_NSIS_INSTALL_ROOT "$PROGRAMFILES64")
set(CPACK_PACKAGE_INSTALL_DIRECTORY "Zentrovar Sidekin")
set(CPACK_NSIS_DISPLAY_NAME "Zentrovar Sidekin ${PROJECT_VERSION}")
set(CPACK_NSIS_PACKAGE_NAME "Zentrovar Sidekin")
set(CPACK_PACKAGE_EXECUTABLES "zentrovar-hostsim;Zentrovar host simulator")
set(CPACK_NSIS_ENABLE_UNINSTALL_BEFORE_INSTALL ON)
