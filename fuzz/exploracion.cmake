tarvo_fuzz(exploracion LINKS exploracion)
