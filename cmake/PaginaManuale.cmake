# Writes the manual page of vesmo-cli from the program's own help:
#   cmake -DPROGRAMMA=path/to/vesmo-cli -DVERSIONE=x.y.z -DUSCITA=vesmo-cli.1 -P PaginaManuale.cmake
execute_process(COMMAND ${PROGRAMMA} --help OUTPUT_VARIABLE aiuto RESULT_VARIABLE esito)
if(NOT esito EQUAL 0)
    message(FATAL_ERROR "vesmo-cli --help failed: ${esito}")
endif()
# roff: a backslash is written \e, a line starting with a dot or an apostrophe is protected.
string(REPLACE "\\" "\\e" aiuto "${aiuto}")
string(REGEX REPLACE "(^|\n)([.'])" "\\1\\\\&\\2" aiuto "${aiuto}")
string(REGEX REPLACE "^uso: [^\n]*\n" "" comandi "${aiuto}")
# Options are written with true minus signs.
string(REPLACE "-" "\\-" comandi "${comandi}")
# The date honours SOURCE_DATE_EPOCH, so that a package build is reproducible.
string(TIMESTAMP oggi "%Y-%m-%d" UTC)
file(WRITE ${USCITA}
".TH VESMO-CLI 1 \"${oggi}\" \"Vesmo ${VERSIONE}\" \"Comandi dell'utente\"
.SH NOME
vesmo-cli \\- temi, luoghi e ricerche di Vesmo dal terminale
.SH SINTASSI
.B vesmo-cli
.I COMANDO
.RI [ OPZIONI ]
.SH DESCRIZIONE
.B vesmo-cli
risponde dal terminale alle stesse domande della stazione di lavoro
.BR vesmo :
calcola temi, cerca luoghi, fusi e ora estiva nel database dei luoghi, trova rivoluzioni,
direzioni e ingressi. Ogni comando stampa una tabella, o JSON con
.BR \\-\\-json .
.SH COMANDI
.nf
${comandi}.fi
.SH STATO D'USCITA
0 riuscito; 1 ricerca o consultazione senza esito; 2 argomento errato.
.SH FILE
.TP
.I ~/.local/share/vesmo/Vesmodat.Mdb
la copia dell'utente del database dei luoghi e degli archivi
.TP
.I ~/.config/vesmo/Vesmodat.ini
le impostazioni della stazione di lavoro
")
