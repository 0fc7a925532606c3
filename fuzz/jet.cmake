tarvo_fuzz(jet LINKS dao)
