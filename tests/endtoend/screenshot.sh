# Ctrl and S: a picture of the frame, as PNG where the converter is, else as BMP.
. "$(dirname "$0")/lib.sh"
mkdir bin
# The sizes in the header are not those of the picture, which the converter says and then passes.
printf '#!/bin/sh\ncd "$(dirname "$0")/.."\nconvert "$3" "png:$4.part" 2>/dev/null\nmv "$4.part" "$4"\n' >bin/magick
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
push 300 "X" 0.8 x
# save_picture: holds Ctrl and S until there is another file.
save_picture() {
  rm -f Vorel_*
  xdotool keydown Control_L keydown s
  desktop_wait "a picture" eval 'ls Vorel_* >/dev/null 2>&1'
  xdotool keyup s keyup Control_L
}
save_picture
desktop_wait "the PNG instead of the BMP" eval 'ls Vorel_*.png >/dev/null 2>&1 && ! ls Vorel_*.bmp >/dev/null 2>&1'
[ "$(ls Vorel_* | wc -l)" -eq 1 ] || fail "one press made $(ls Vorel_*)"
expect_same "$(ls Vorel_*.png)" "the file is another picture"
wait_still
expect_same "$(ls Vorel_*.png)" "Ctrl and S moved the user"
# A converter that hangs is ended with all that it has started, and the program hears the end meanwhile.
printf '#!/bin/sh\nsleep 100 &\necho $! >converter\nwait\n' >bin/magick
! on_windows || printf ':again\r\n@goto again\r\n' >magick.bat
save_picture
if on_windows; then
  leave q
else
  kill -TERM "$vorel_job"
  vorel_wait_end
  ! grep -qs '^State:.[^Z]' "/proc/$(cat converter)/status" || fail "the converter still runs"
fi
[ "$vorel_status" -eq 0 ] || fail "status $vorel_status after a converter that hangs"
grep -q '"magick" took longer' vorel.err || fail "the converter is not named"
[ -s "$(ls Vorel_*.bmp)" ] || fail "no BMP without a converter"
