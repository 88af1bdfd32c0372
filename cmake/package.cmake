# What is installed, and the Debian package: cmake --install build/release, or cpack in build/release.
# The program stands in a folder of its own, with what it looks for beside itself; it hands the
# data in delivered/ out to each user.
include(GNUInstallDirs)
set(SSQ_PROGRAM_DIR lib/${SSQ_PACKAGE_NAME})
set(SSQ_SHARE_DIR ${CMAKE_INSTALL_DATADIR}/${SSQ_PACKAGE_NAME})
set(SSQ_DOC_DIR ${CMAKE_INSTALL_DATADIR}/doc/${SSQ_PACKAGE_NAME})
set(SSQ_PACKAGING ${CMAKE_BINARY_DIR}/packaging)

function(ssq_install_link target place)
    install(CODE "
        set(link \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${place}\")
        get_filename_component(folder \"\${link}\" DIRECTORY)
        file(MAKE_DIRECTORY \"\${folder}\")
        file(CREATE_LINK ${target} \"\${link}\" SYMBOLIC)")
endfunction()

set(SSQ_PROGRAMS ssq)
if(TARGET ssq_gateway)
    list(APPEND SSQ_PROGRAMS ssq_gateway)
endif()
install(TARGETS ${SSQ_PROGRAMS} RUNTIME DESTINATION ${SSQ_PROGRAM_DIR})
install(FILES ${SSQ_DELIVERED_DATABASE} ${CMAKE_SOURCE_DIR}/data/draws.csv
        DESTINATION ${SSQ_SHARE_DIR}/delivered)
install(DIRECTORY ${SSQ_MANUAL} DESTINATION ${SSQ_SHARE_DIR})
ssq_install_link(../../${SSQ_SHARE_DIR}/delivered ${SSQ_PROGRAM_DIR}/delivered)
ssq_install_link(../../${SSQ_SHARE_DIR}/manual ${SSQ_PROGRAM_DIR}/manual)
foreach(program ${SSQ_PROGRAMS})
    ssq_install_link(../${SSQ_PROGRAM_DIR}/${program} ${CMAKE_INSTALL_BINDIR}/${program})
endforeach()

# The records of the desktop and of the package.
configure_file(packaging/ssq.desktop.in ${SSQ_PACKAGING}/${SSQ_APP_ID}.desktop @ONLY)
configure_file(packaging/ssq.metainfo.xml.in ${SSQ_PACKAGING}/${SSQ_APP_ID}.metainfo.xml @ONLY)
install(FILES ${SSQ_PACKAGING}/${SSQ_APP_ID}.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${SSQ_PACKAGING}/${SSQ_APP_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES packaging/ssq.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
        RENAME ${SSQ_APP_ID}.svg)

file(READ LICENSE license)
string(REGEX REPLACE "^MIT License\n+Copyright[^\n]*\n+" "" license "${license}")
string(REGEX REPLACE "\n\n" "\n.\n" license "${license}")
string(REGEX REPLACE "\n([^\n])" "\n \\1" SSQ_LICENSE_TEXT "\n${license}")
configure_file(packaging/copyright.in ${SSQ_PACKAGING}/copyright @ONLY)
execute_process(COMMAND date -R -u -d ${SSQ_RELEASE_DATE} OUTPUT_VARIABLE SSQ_RELEASE_TIME
                OUTPUT_STRIP_TRAILING_WHITESPACE)
configure_file(packaging/changelog.in ${SSQ_PACKAGING}/changelog @ONLY)
execute_process(COMMAND gzip -9nf ${SSQ_PACKAGING}/changelog)
install(FILES ${SSQ_PACKAGING}/copyright ${SSQ_PACKAGING}/changelog.gz
        DESTINATION ${SSQ_DOC_DIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${SSQ_PACKAGE_NAME})
set(CPACK_PACKAGE_VENDOR ${SSQ_PRODUCT_NAME})
set(CPACK_PACKAGE_CONTACT ${SSQ_MAINTAINER})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "analysis workbench for the lottery game Double Colour Ball")
set(CPACK_PACKAGE_DESCRIPTION
    "Keeps the whole draw history of the China Welfare Lottery game Double Colour
Ball (six reds of 33, one blue of 16) in one local database and shows it in
tables and charts. It filters all combinations by conditions of the player,
learns number formulas from past draws, and measures what such formulas are
worth on draws they have not seen. All numbers are statistics of the past.
The program and its manual are in Chinese.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${SSQ_MAKER_SITE})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS ca-certificates)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "fonts-noto-cjk | fonts-wqy-microhei, qt6-translations-l10n, xdg-utils")
include(CPack)
