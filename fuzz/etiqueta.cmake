tarvo_fuzz(etiqueta LINKS labels)
