tarvo_fuzz(tramas LINKS tramas)
