# Installs the build tree BUILD into PREFISSO and checks the installed tree; then runs the
# installed vesmo-cli with HOME at CASA, which must find the delivered database through the
# user's copy it makes.
file(REMOVE_RECURSE ${PREFISSO} ${CASA})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFISSO}
                RESULT_VARIABLE esito OUTPUT_QUIET)
if(NOT esito EQUAL 0)
    message(FATAL_ERROR "cmake --install failed: ${esito}")
endif()

set(attesi
    bin/vesmo
    bin/vesmo-cli
    share/applications/vesmo.desktop
    share/icons/hicolor/scalable/apps/vesmo.svg
    share/icons/hicolor/16x16/apps/vesmo.png
    share/icons/hicolor/32x32/apps/vesmo.png
    share/icons/hicolor/48x48/apps/vesmo.png
    share/icons/hicolor/64x64/apps/vesmo.png
    share/icons/hicolor/128x128/apps/vesmo.png
    share/icons/hicolor/256x256/apps/vesmo.png
    share/vesmo/Vesmodat.Mdb
    share/man/man1/vesmo-cli.1
    share/doc/vesmo/copyright)
foreach(f IN LISTS attesi)
    if(NOT EXISTS ${PREFISSO}/${f})
        message(FATAL_ERROR "missing from the installed tree: ${f}")
    endif()
endforeach()

# The PNG icons are of the size their folder names (width and height in the IHDR chunk).
foreach(lato 16 32 48 64 128 256)
    file(READ ${PREFISSO}/share/icons/hicolor/${lato}x${lato}/apps/vesmo.png testa LIMIT 24 HEX)
    string(SUBSTRING "${testa}" 32 16 dimensioni)
    math(EXPR atteso "${lato}" OUTPUT_FORMAT HEXADECIMAL)
    string(REPLACE "0x" "" atteso "${atteso}")
    string(LENGTH "${atteso}" n)
    math(EXPR zeri "8 - ${n}")
    string(REPEAT "0" ${zeri} riempi)
    if(NOT dimensioni STREQUAL "${riempi}${atteso}${riempi}${atteso}")
        message(FATAL_ERROR "icon ${lato}x${lato} has size ${dimensioni}")
    endif()
endforeach()

# The manual page holds every command of the program's help.
file(READ ${PREFISSO}/share/man/man1/vesmo-cli.1 manuale)
execute_process(COMMAND ${PREFISSO}/bin/vesmo-cli --help OUTPUT_VARIABLE aiuto)
string(REGEX MATCHALL "\n  [a-z]+ " comandi "${aiuto}")
foreach(c IN LISTS comandi)
    string(STRIP "${c}" c)
    if(NOT manuale MATCHES "\n  ${c} ")
        message(FATAL_ERROR "the manual page lacks the command ${c}")
    endif()
endforeach()
if(NOT manuale MATCHES "^\\.TH VESMO-CLI 1 ")
    message(FATAL_ERROR "the manual page has no .TH line")
endif()

# The desktop entry passes the freedesktop validator, when it is there.
find_program(VALIDA desktop-file-validate)
if(VALIDA)
    execute_process(COMMAND ${VALIDA} ${PREFISSO}/share/applications/vesmo.desktop
                    RESULT_VARIABLE esito OUTPUT_VARIABLE detto ERROR_VARIABLE detto)
    if(NOT esito EQUAL 0 OR NOT detto STREQUAL "")
        message(FATAL_ERROR "desktop-file-validate: ${detto}")
    endif()
endif()

# The installed vesmo-cli finds the delivered database through the user's copy.
file(MAKE_DIRECTORY ${CASA})
execute_process(COMMAND ${CMAKE_COMMAND} -E env --unset=XDG_CONFIG_HOME --unset=XDG_DATA_HOME
                        HOME=${CASA} ${PREFISSO}/bin/vesmo-cli luogo --city Padova --nazione Italy
                        --data 10/04/1987 --ora 19:30
                WORKING_DIRECTORY ${CASA} RESULT_VARIABLE esito OUTPUT_VARIABLE detto
                ERROR_VARIABLE errore)
if(NOT esito EQUAL 0)
    message(FATAL_ERROR "installed vesmo-cli luogo: ${esito} ${errore}")
endif()
if(NOT detto MATCHES "Padova")
    message(FATAL_ERROR "installed vesmo-cli luogo printed: ${detto}")
endif()
if(NOT EXISTS ${CASA}/.local/share/vesmo/Vesmodat.Mdb)
    message(FATAL_ERROR "no user copy of the database in ${CASA}/.local/share/vesmo")
endif()
file(SIZE ${CASA}/.local/share/vesmo/Vesmodat.Mdb copia)
file(SIZE ${PREFISSO}/share/vesmo/Vesmodat.Mdb consegnato)
if(NOT copia EQUAL consegnato)
    message(FATAL_ERROR "the user's copy has ${copia} bytes, the delivered database ${consegnato}")
endif()
file(REMOVE_RECURSE ${PREFISSO} ${CASA})
