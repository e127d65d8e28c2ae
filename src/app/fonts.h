#pragma once

// Builds the fonts "normal", which the program carries, and "fmod", whose file "font_fmod.dat" is
// drawn and written at the first run and used as it stands from then on. If the file can't be
// written or read, the drawn font is used and a sentence tells why; one that holds no font is a
// fatal report. Needs the window.
void fonts_start();
