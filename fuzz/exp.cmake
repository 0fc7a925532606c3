tarvo_fuzz(exp LINKS totals esquema)
