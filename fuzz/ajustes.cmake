tarvo_fuzz(tarvo_ini LINKS ajustes)
tarvo_fuzz(conectores_ini LINKS ajustes)
