# What is installed where, and the Debian package. Include it behind all targets.
if(NOT TARGET VarnoTicketFormatter OR NOT UNIX)
    return()
endif()

set(package varno-ticket-formatter)
set(texts ${PROJECT_SOURCE_DIR}/packaging)
set(made ${PROJECT_BINARY_DIR}/packaging)

# All that is installed, without the tests.
add_custom_target(installed)
add_dependencies(installed VarnoTicketFormatter varno-indicator varno-practice varno-tickets catalogues
    samples tutorial)

# Every program looks for the catalogues in its own folder, the window for its tutorial too. So all
# live in one folder, and what is called are links into it. The catalogues are the customer's to
# change, so there they are links too: /etc keeps them through upgrades and removal.
install(TARGETS VarnoTicketFormatter varno-indicator varno-practice varno-tickets
    RUNTIME DESTINATION lib/${package})
# What there is to practise on lies beside its program too: documentation may be left out.
install(FILES "${PROJECT_BINARY_DIR}/Plant.VRB" DESTINATION lib/${package})
foreach(format rtf html)
    install(FILES "${PROJECT_BINARY_DIR}/Varno Ticket Formatter Tutorial.${format}"
        DESTINATION lib/${package})
endforeach()
function(install_link target folder name)
    file(MAKE_DIRECTORY ${made}/${folder})
    file(CREATE_LINK ${target} "${made}/${folder}/${name}" SYMBOLIC)
    install(FILES "${made}/${folder}/${name}" DESTINATION ${folder})
endfunction()
install_link(../lib/${package}/VarnoTicketFormatter bin ${package})
install_link(../lib/${package}/varno-indicator bin varno-indicator)
install_link(../lib/${package}/varno-practice bin varno-practice)
install_link(../lib/${package}/varno-tickets bin varno-tickets)
file(WRITE ${made}/conffiles "")
foreach(catalogue ${VARNO_CATALOGUES})
    # "Varno Print Codes.txt" is print-codes.txt there: configuration files have no blanks.
    string(REGEX REPLACE "^Varno " "" name ${catalogue})
    string(TOLOWER ${name} name)
    string(REPLACE " " "-" name ${name})
    install(FILES "${PROJECT_BINARY_DIR}/${catalogue}" DESTINATION /etc/${package} RENAME ${name})
    install_link(/etc/${package}/${name} lib/${package} ${catalogue})
    file(APPEND ${made}/conffiles "/etc/${package}/${name}\n")
endforeach()

install(FILES ${texts}/${package}.desktop DESTINATION share/applications)
install(FILES ${texts}/${package}.mime.xml DESTINATION share/mime/packages RENAME ${package}.xml)
install(
    FILES ${texts}/${package}.metainfo.xml
    DESTINATION share/metainfo
    RENAME invalid.example.VarnoTicketFormatter.metainfo.xml
)
install(DIRECTORY ${texts}/icons/ DESTINATION share/icons/hicolor)
install(FILES ${texts}/debian/copyright DESTINATION share/doc/${package})
install(
    FILES ${texts}/debian/lintian-overrides
    DESTINATION share/lintian/overrides
    RENAME ${package}
)
install(
    FILES ${VARNO_SAMPLES} ${PROJECT_SOURCE_DIR}/samples/Plant.txt
    DESTINATION share/doc/${package}/examples
)

set(completion ${made}/completion)
add_custom_command(
    OUTPUT ${completion}
    COMMAND varno-tickets completion > ${completion}
    DEPENDS varno-tickets
    VERBATIM
)
add_custom_target(completion DEPENDS ${completion})
add_dependencies(installed completion)
install(FILES ${completion} DESTINATION share/bash-completion/completions RENAME varno-tickets)

install(FILES ${texts}/varno-practice.completion
    DESTINATION share/bash-completion/completions RENAME varno-practice)

# Manual pages and the log of changes are packed; -n keeps the time out, so builds repeat.
function(install_packed source destination)
    cmake_path(GET source FILENAME name)
    set(packed ${made}/${name}.gz)
    add_custom_command(
        OUTPUT ${packed}
        COMMAND gzip -9nc ${source} > ${packed}
        DEPENDS ${source}
        VERBATIM
    )
    add_custom_target(packed-${name} DEPENDS ${packed})
    add_dependencies(installed packed-${name})
    cmake_path(GET destination FILENAME target)
    cmake_path(GET destination PARENT_PATH folder)
    install(FILES ${packed} DESTINATION ${folder} RENAME ${target})
endfunction()
foreach(page ${package} varno-indicator varno-practice varno-tickets)
    configure_file(${PROJECT_SOURCE_DIR}/docs/man/${page}.1 ${made}/${page}.1 @ONLY)
    install_packed(${made}/${page}.1 share/man/man1/${page}.1.gz)
endforeach()
install_packed(${texts}/debian/changelog share/doc/${package}/changelog.Debian.gz)
install_packed(${PROJECT_SOURCE_DIR}/CHANGELOG.md share/doc/${package}/changelog.gz)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${package})
set(CPACK_PACKAGE_VERSION ${VARNO_VERSION})
set(CPACK_PACKAGE_VENDOR "The Varno Ticket Formatter authors")
set(CPACK_PACKAGE_CONTACT "The Varno Ticket Formatter authors <varno-ticket-formatter@example.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "write the printed tickets of a Varno weighing indicator")
set(CPACK_PACKAGE_DESCRIPTION "\
Writes and edits the tickets that a weighing indicator, model Varno, prints:
lines of text with control codes and print codes, shown in colours. Puts them
into the ticket memory of the indicator, binds them to its keys, and moves the
whole memory over a serial port in both directions.
.
Brings a terminal for the serial line, a tutorial, a simulated indicator for
training (varno-practice, varno-indicator) and the same rules for the command
line (varno-tickets).")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_SOURCE_DIR}/build/package)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE
)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-liberation | fonts-liberation2, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA
    ${made}/conffiles ${texts}/debian/preinst ${texts}/debian/postinst ${texts}/debian/postrm
)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
