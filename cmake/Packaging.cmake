# SPDX-License-Identifier: GPL-3.0-or-later
# What `cmake --install` puts where, and the Debian package that `cpack` makes of it.
include(GNUInstallDirs)

set(ORV_CONTACT maintainers@orvhost.example.org)
set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(prepared ${PROJECT_BINARY_DIR}/packaging)

install(TARGETS orvhost
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        BUNDLE DESTINATION .)
if(LINUX)
    install(TARGETS orv orvsim RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
install(FILES README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR}
        FILES_MATCHING PATTERN "USER_GUIDE.md" PATTERN "PROTOCOL.md" PATTERN "*.png")

if(WIN32 OR APPLE)
    return()
endif()

# orv_install_compressed(FILE FOLDER NAME)
# Installs FILE.in, with the version filled in, as FOLDER/NAME.gz: the same bytes at every build.
find_program(GZIP_PROGRAM gzip REQUIRED)
function(orv_install_compressed file folder name)
    configure_file(${packaging}/${file}.in ${prepared}/${name} @ONLY)
    execute_process(COMMAND ${GZIP_PROGRAM} -9 --no-name --keep --force ${prepared}/${name} COMMAND_ERROR_IS_FATAL ANY)
    install(FILES ${prepared}/${name}.gz DESTINATION ${folder})
endfunction()

configure_file(${packaging}/${ORV_ID}.metainfo.xml.in ${prepared}/${ORV_ID}.metainfo.xml @ONLY)
install(FILES ${packaging}/${ORV_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${prepared}/${ORV_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${packaging}/icon/orvhost.svg DESTINATION ${icons}/scalable/apps RENAME ${ORV_ID}.svg)
foreach(size 16 22 24 32 48 64 128 256 512)
    install(FILES ${packaging}/icon/orvhost-${size}.png DESTINATION ${icons}/${size}x${size}/apps
            RENAME ${ORV_ID}.png)
endforeach()
orv_install_compressed(man/orvhost.1 ${CMAKE_INSTALL_MANDIR}/man1 orvhost.1)
if(LINUX)
    orv_install_compressed(man/orv.1 ${CMAKE_INSTALL_MANDIR}/man1 orv.1)
    orv_install_compressed(man/orvsim.1 ${CMAKE_INSTALL_MANDIR}/man1 orvsim.1)
    install(FILES ${packaging}/orv.bash-completion
            DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME orv)
    set(unit orv-collect@.service)
    set(ORV_PROGRAM orv) # found by the system in its own folders of programs
    configure_file(${packaging}/${unit}.in ${prepared}/${unit} @ONLY)
    install(FILES ${prepared}/${unit} DESTINATION lib/systemd/system)
    find_program(SYSTEMD_ANALYZE systemd-analyze)
    if(ORV_BUILD_TESTS AND SYSTEMD_ANALYZE)
        set(ORV_PROGRAM ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/orv)
        configure_file(${packaging}/${unit}.in ${prepared}/checked/${unit} @ONLY)
        add_test(NAME systemd_unit COMMAND ${SYSTEMD_ANALYZE} verify --man=no ${prepared}/checked/${unit})
    endif()
endif()
orv_install_compressed(debian/changelog ${CMAKE_INSTALL_DOCDIR} changelog)
install(FILES ${packaging}/debian/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGE_CONTACT "ORV Host maintainers <${ORV_CONTACT}>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "host program for ORV self-logging optical water sensors")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libnetcdf19 | libnetcdf22, qt6-translations-l10n, qt6-wayland, xdg-user-dirs")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"ORV Host connects the ORV self-logging optical water sensors, the fluorometer
GLOW and the three-angle scattering meter TRX, on a serial port.
orv does the same without a window, in scripts and as a service.
.
It reads and sends their logger settings and clock, collects live data into a
sheet and a record file, downloads their memory and supports bench
calibration; rows can be exported as CSV or, with the netCDF library, as
NetCDF. Simulated instruments are built in; orvsim serves one on a
pseudo-terminal.")
include(CPack)
