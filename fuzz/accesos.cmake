tarvo_fuzz(accesos LINKS exploracion)
