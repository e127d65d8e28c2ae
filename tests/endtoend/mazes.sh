# N makes the maze that its modifiers ask for, a walk leads through the doors of a room, and R and E
# move the layout of the maze that one stands in.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start

ladder
shot ladder.png
hold 0.6 Shift_L n
sleep 1
shot patchwork.png
[ "$(pixels_changed ladder.png patchwork.png)" -gt 2000 ] || fail "Shift+N made no other maze"
ladder
shot again.png
[ "$(pixels_changed ladder.png again.png)" -lt 500 ] || fail "another ladder than the first"

# Along the corridor and through the left door into the first room: the view has followed.
hold 1.5 Right
sleep 0.7
shot room.png
[ "$(pixels_changed again.png room.png)" -gt 2000 ] || fail "no way into the first room"
hold 1 r
shot drawn.png
[ "$(pixels_changed room.png drawn.png)" -gt 500 ] || fail "R moved nothing"
hold 0.3 e
shot spread.png
[ "$(pixels_changed drawn.png spread.png)" -gt 500 ] || fail "E moved nothing"
hold 0.6 n
sleep 1
shot last.png
[ "$(pixels_changed spread.png last.png)" -gt 500 ] || fail "N made no other maze"
quit_cleanly
