# Each way of drawing by its key; held keys while they are held.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start
ladder
hold 0.8 x
hold 0.4 Control_L Up
sleep 1.5
look
cp last.png lines.png
hold_changes 300 "H, the gantry" 0.4 h
hold_changes 300 "H again, balls and sticks" 0.4 h
hold_changes 0 "L, a light" 0.4 l
hold_changes 0 "L again, no light" 0.4 l
hold_changes 300 "V, the landscape" 0.4 v
for mode in 0 1 2 3 4 5; do
  hold_changes 300 "M to kind $mode" 0.4 m
done
hold 0.4 h # has no effect on the landscape
sleep 0.5
shot now.png
[ "$(pixels_changed last.png now.png)" -eq 0 ] || fail "H changes the landscape"
hold 0.4 v
sleep 0.5
look
[ "$(pixels_changed lines.png last.png)" -eq 0 ] || fail "V again does not lead back to lines"
for key in f j; do
  xdotool keydown $key
  expect_change 20 "$key held"
  xdotool keyup $key
  sleep 0.5
  look
  [ "$(pixels_changed lines.png last.png)" -eq 0 ] || fail "$key acts after its release"
done
quit_cleanly
