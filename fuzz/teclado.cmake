tarvo_fuzz(teclado LINKS devices)
