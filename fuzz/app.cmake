tarvo_fuzz(recado LINKS app)
