#pragma once

// Builds the font "normal", which is part of the program, and the font "fmod" from "font_fmod.dat",
// which the first run generates. If the file can't be read or written, the generated font is used
// and the reason is reported. A file without a font is a fatal report. Needs an open window.
void fonts_start();
