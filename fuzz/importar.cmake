tarvo_fuzz(plu LINKS importar)
tarvo_fuzz(tabla LINKS importar)
