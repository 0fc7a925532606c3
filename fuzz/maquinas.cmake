tarvo_fuzz(maquinas LINKS maquinas)
