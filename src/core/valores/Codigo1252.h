// Windows-1252, character by character: the encoding of the domain's files and of machines that
// show more than ASCII.
#pragma once

namespace tarvo {

// The byte of a character, or -1 for one outside the table. The five bytes without a character
// stand for themselves, so that every byte survives a round trip.
int byte1252(char16_t caracter);
char16_t caracter1252(unsigned char byte);

}  // namespace tarvo
