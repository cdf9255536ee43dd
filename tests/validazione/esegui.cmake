# Random joints, examples and hand sheets through the program and through the independent calculation.
set(V ${SORGENTE}/tests/validazione)
set(ENV{PYTHONDONTWRITEBYTECODE} 1)
file(REMOVE_RECURSE ${CARTELLA})
file(MAKE_DIRECTORY ${CARTELLA})
execute_process(COMMAND ${PYTHON} ${V}/genera_nodi.py --albero ${ALBERO} --uscita ${CARTELLA}
    --numero 200 --seme 20 RESULT_VARIABLE esito)
if(NOT esito EQUAL 0)
    message(FATAL_ERROR "genera_nodi.py: ${esito}")
endif()
# The hand sheets' own figures, so that the program's comparison below is one with them.
foreach(foglio foglio_slu foglio_ta)
    execute_process(COMMAND ${PYTHON} ${V}/calcolo_indipendente.py --albero ${ALBERO}
        --json ${V}/${foglio}.json RESULT_VARIABLE esito)
    if(NOT esito EQUAL 0)
        message(FATAL_ERROR "${foglio}: ${esito}")
    endif()
endforeach()
file(GLOB nodi ${CARTELLA}/*.tk7 ${SORGENTE}/installazione/lavori/*/*.tk7 ${V}/*.tk7)
list(FILTER nodi EXCLUDE REGEX "_vecchio")
foreach(lingua C it_IT.UTF-8)
    set(ENV{LC_ALL} ${lingua})
    execute_process(COMMAND ${PYTHON} ${V}/calcolo_indipendente.py --tk07 ${ALBERO}/progra/tk07
        --diroot ${ALBERO} ${nodi} RESULT_VARIABLE esito)
    if(NOT esito EQUAL 0)
        message(FATAL_ERROR "calcolo_indipendente.py (${lingua}): ${esito}")
    endif()
endforeach()
