# Fills the runnable tree from the shipped one. Jobs that stand in it already (reports, joints saved by
# the user) are left alone; shipped files are brought up to date.
file(COPY ${SORGENTE}/ DESTINATION ${ALBERO} PATTERN .gitkeep EXCLUDE)
foreach(dir custom progra impostazioni help manuali videocorso driver temp macro_2d lavori)
    file(MAKE_DIRECTORY ${ALBERO}/${dir})
endforeach()
file(WRITE ${ALBERO}/impostazioni/dirlav "${ALBERO}/lavori\n")
if(NOT EXISTS ${ALBERO}/impostazioni/lavoro)
    file(WRITE ${ALBERO}/impostazioni/lavoro "esempi\n")
endif()
