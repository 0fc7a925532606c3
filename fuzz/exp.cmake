tarvo_fuzz(exp LINKS intercambio esquema)
