# N makes the maze that its modifiers ask for, a walk leads through the doors of a room, and R and E
# move the layout of the maze that one stands in.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start

ladder
look
cp last.png ladder.png
hold_changes 2000 "Shift+N, a patchwork," 0.6 Shift_L n
ladder
look
[ "$(pixels_changed ladder.png last.png)" -lt 500 ] || fail "another ladder than the first"

# Along the corridor and through the left door into the first room: the view has followed.
hold_changes 2000 "the way into the first room" 1.5 Right
hold_changes 500 "R" 1 r
hold_changes 500 "E" 0.3 e
hold_changes 500 "N" 0.6 n
quit_cleanly
