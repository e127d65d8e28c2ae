# Ctrl and S: a picture of the frame, as PNG where the converter is, else as BMP.
. "$(dirname "$0")/lib.sh"
mkdir bin
# The sizes in the header are not those of the picture, which the converter says and then passes.
printf '#!/bin/sh\ncd "$(dirname "$0")/.."\nshift 2\nexec convert "$@" 2>/dev/null\n' >bin/magick
chmod +x bin/magick
PATH=$PWD/bin:$PATH
# The shell there takes a batch file, first from the folder that it is in, and starts what is not of
# its own system without waiting.
! on_windows ||
  printf '@echo off\r\nstart /unix %s/bin/magick %%1 %%2 %%~3 %%~4\r\n:again\r\nif not exist %%4 goto again\r\n' \
    "$PWD" >magick.bat
desktop_start
vorel_start
ladder
hold 0.8 x
sleep 1.5
look
hold 0.4 Control_L s
sleep 1
shots=$(ls Vorel_*.png)
[ "$(echo "$shots" | wc -l)" -eq 1 ] || fail "one press made $shots"
[ "$(pixels_changed last.png "$shots")" -eq 0 ] || fail "the file is another picture"
shot now.png
[ "$(pixels_changed last.png now.png)" -eq 0 ] || fail "Ctrl and S moved the user"
[ ! -e "${shots%.png}.bmp" ] || fail "the BMP of a PNG stays"
printf '#!/bin/sh\nexit 0\n' >bin/magick
! on_windows || echo '@exit 0' >magick.bat
hold 0.4 Control_L s
sleep 1
bmp=$(ls Vorel_*.bmp) || fail "no BMP without a converter"
[ "$(stat -c %s "$bmp")" -gt 200000 ] || fail "the BMP is short"
[ "$(head -c 2 "$bmp")" = BM ] || fail "the BMP has no signature"
quit_cleanly
