# N makes the maze that its modifiers ask for, a walk leads through the doors of a room, and R and E
# move the layout of the maze that one stands in.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start

ladder
look
cp last.png ladder.png
hold 0.6 Shift_L n
expect_change 2000 "Shift+N, a patchwork,"
ladder
look
[ "$(pixels_changed ladder.png last.png)" -lt 500 ] || fail "another ladder than the first"

# Along the corridor and through the left door into the first room: the view has followed.
hold 1.5 Right
expect_change 2000 "the way into the first room"
hold 1 r
expect_change 500 "R"
hold 0.3 e
expect_change 500 "E"
hold 0.6 n
expect_change 500 "N"
quit_cleanly
