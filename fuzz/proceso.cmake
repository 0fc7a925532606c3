tarvo_fuzz(proceso LINKS automation)
