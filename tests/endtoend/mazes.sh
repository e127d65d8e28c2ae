# N makes the maze that its modifiers ask for, a walk leads through the doors of a room, and R and E
# move the layout of the maze that the user is in.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start
ladder
cp last.ppm ladder.ppm
press 2000 "Shift+N, a patchwork," Shift_L n
ladder
expect_same ladder.ppm "another ladder than the first" 500
push 2000 "the way into the first room" 1.5 Right
push 500 "R" 1 r
push 500 "E" 0.3 e
press 500 "N" n
quit_cleanly
