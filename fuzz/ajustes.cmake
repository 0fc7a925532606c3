tarvo_fuzz(tarvo_ini LINKS app)
tarvo_fuzz(conectores_ini LINKS cables)
