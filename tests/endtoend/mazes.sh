# N makes the maze that its modifiers ask for, a walk leads through the doors of a room and leaves its
# corridor bright, and R and E move the layout of the maze that the user is in.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start
ladder
cp last.ppm ladder.ppm
press 2000 "Shift+N, a patchwork," Shift_L n
ladder
expect_same ladder.ppm "another ladder than the first" 500
push 2000 "the way into the first room" 1.5 Right
hold 3 Left
rest
brighter=$(convert last.ppm ladder.ppm -channel R -separate +channel -compose minus_src -composite \
  -threshold 20% -format '%[fx:round(mean*w*h)]' info:)
[ "$brighter" -ge 100 ] || fail "no corridor turned bright ($brighter pixels)"
expect_same ladder.ppm "the view did not come back" 80000 # all corridors are thin
push 2000 "the way into the first room" 1.5 Right
push 500 "R" 1 r
push 500 "E" 0.3 e
press 500 "N" n
quit_cleanly
