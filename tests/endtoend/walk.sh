# There and back along a corridor: the picture is the same but for the corridor, which is bright.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start
ladder
cp last.ppm before.ppm
push 300 "the way into the first room" 1.2 Right
hold 3 Left
rest
brighter=$(convert last.ppm before.ppm -channel R -separate +channel -compose minus_src -composite \
  -threshold 20% -format '%[fx:round(mean*w*h)]' info:)
[ "$brighter" -ge 100 ] || fail "no corridor turned bright ($brighter pixels)"
# All corridors are thin: what lies elsewhere has come back to its place.
expect_same before.ppm "the view did not come back" 80000
quit_cleanly
