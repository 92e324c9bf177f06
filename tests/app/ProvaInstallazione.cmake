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
    share/man/man1/vesmo-cli.1.gz
    share/man/man1/vesmo.1.gz
    share/doc/vesmo/copyright
    share/doc/vesmo/changelog.gz)
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

# The manual pages and the changelog are compressed with gzip -9n, as Debian wants them: a gzip
# stream (1f 8b 08) with no file name in its header (flag 08) and no time stamp (bytes 4-7).
find_program(GZIP gzip REQUIRED)
foreach(f share/man/man1/vesmo-cli.1.gz share/man/man1/vesmo.1.gz share/doc/vesmo/changelog.gz)
    file(READ ${PREFISSO}/${f} testa LIMIT 8 HEX)
    string(SUBSTRING "${testa}" 0 6 magia)
    string(SUBSTRING "${testa}" 6 2 bandiere)
    string(SUBSTRING "${testa}" 8 8 ora)
    math(EXPR nome "0x${bandiere} & 8")
    if(NOT magia STREQUAL "1f8b08" OR NOT nome EQUAL 0 OR NOT ora STREQUAL "00000000")
        message(FATAL_ERROR "${f} is not compressed with gzip -9n: header ${testa}")
    endif()
    execute_process(COMMAND ${GZIP} -dc ${PREFISSO}/${f} RESULT_VARIABLE esito
                    OUTPUT_VARIABLE testo)
    if(NOT esito EQUAL 0)
        message(FATAL_ERROR "${f} does not decompress: ${esito}")
    endif()
    get_filename_component(nomeFile ${f} NAME)
    set("contenuto_${nomeFile}" "${testo}")
endforeach()

# The manual page of vesmo-cli holds every command of the program's help.
set(manuale "${contenuto_vesmo-cli.1.gz}")
execute_process(COMMAND ${PREFISSO}/bin/vesmo-cli --help OUTPUT_VARIABLE aiuto)
string(REGEX MATCHALL "\n  [a-z]+ " comandi "${aiuto}")
foreach(c IN LISTS comandi)
    string(STRIP "${c}" c)
    if(NOT manuale MATCHES "\n  ${c} ")
        message(FATAL_ERROR "the manual page lacks the command ${c}")
    endif()
endforeach()
if(NOT manuale MATCHES "^\\.TH VESMO-CLI 1 ")
    message(FATAL_ERROR "the manual page of vesmo-cli has no .TH line")
endif()

# The workstation's page names the files where the programs keep the settings and the user's
# database (the copy is checked below where vesmo-cli makes it).
set(pagina "${contenuto_vesmo.1.gz}")
if(NOT pagina MATCHES "^\\.TH VESMO 1 ")
    message(FATAL_ERROR "the manual page of vesmo has no .TH line")
endif()
foreach(nome "~/.config/vesmo/Vesmodat.ini" "~/.local/share/vesmo/Vesmodat.Mdb"
             "/usr/share/vesmo/Vesmodat.Mdb" "vesmo\\-cli (1)")
    string(FIND "${pagina}" "${nome}" dove)
    if(dove LESS 0)
        message(FATAL_ERROR "the manual page of vesmo does not name ${nome}")
    endif()
endforeach()

# Both pages format without a warning from man, when it is there.
find_program(MAN man)
if(MAN)
    foreach(f vesmo-cli.1.gz vesmo.1.gz)
        execute_process(COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C.UTF-8 MANROFFSEQ= MANWIDTH=80
                                ${MAN} --warnings -E UTF-8 -l ${PREFISSO}/share/man/man1/${f}
                        RESULT_VARIABLE esito OUTPUT_QUIET ERROR_VARIABLE detto)
        if(NOT esito EQUAL 0 OR NOT detto STREQUAL "")
            message(FATAL_ERROR "man --warnings on ${f}: ${esito} ${detto}")
        endif()
    endforeach()
endif()

# The changelog's newest entry is the package's version, in Debian's format.
file(STRINGS ${BUILD}/CMakeCache.txt versione REGEX "^CMAKE_PROJECT_VERSION:")
string(REGEX REPLACE "^[^=]*=" "" versione "${versione}")
set(cambi "${contenuto_changelog.gz}")
string(REPLACE "." "\\." versioneRegex "${versione}")
if(NOT cambi MATCHES "^vesmo \\(${versioneRegex}\\) [a-z]+; urgency=[a-z]+\n")
    message(FATAL_ERROR "the changelog does not start with version ${versione}: ${cambi}")
endif()
if(NOT cambi MATCHES "\n -- [^<\n]+ <[^>\n]+>  [A-Z][a-z][a-z], [0-9][0-9]? [A-Z][a-z][a-z] [0-9]+ [0-9:]+ [+-][0-9]+\n")
    message(FATAL_ERROR "the changelog's entry has no trailer line: ${cambi}")
endif()

# The package's description and copyright, as Debian checks them: description lines within 80
# columns, a copyright notice with its year.
include(${BUILD}/CPackConfig.cmake)
string(LENGTH "${CPACK_PACKAGE_DESCRIPTION_SUMMARY}" lunga)
if(lunga GREATER 80)
    message(FATAL_ERROR "the package summary has ${lunga} columns")
endif()
string(REPLACE "\n" ";" righe "${CPACK_PACKAGE_DESCRIPTION}")
foreach(riga IN LISTS righe)
    string(LENGTH " ${riga}" lunga)
    if(lunga GREATER 80)
        message(FATAL_ERROR "a description line has ${lunga} columns: ${riga}")
    endif()
endforeach()
# The changelog's entry is signed by the package's maintainer.
string(FIND "${cambi}" "\n -- ${CPACK_DEBIAN_PACKAGE_MAINTAINER}  " firma)
if(firma LESS 0)
    message(FATAL_ERROR "the changelog is not signed by ${CPACK_DEBIAN_PACKAGE_MAINTAINER}")
endif()
file(READ ${PREFISSO}/share/doc/vesmo/copyright diritti)
if(NOT diritti MATCHES "\nCopyright: [0-9][0-9][0-9][0-9]")
    message(FATAL_ERROR "the copyright file has no copyright notice with its year")
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
