// Windows-1252, character by character: the letters of the domain's files and of the machines that
// show more than ASCII.
#pragma once

namespace tarvo {

// The byte of a character, or -1 for one that has no place. The five bytes without a character
// stand for themselves, so that every byte comes back as it was.
int byte1252(char16_t caracter);
char16_t caracter1252(unsigned char byte);

}  // namespace tarvo
