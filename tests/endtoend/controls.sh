# Each way of steering changes the picture, and nothing else does.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start
ladder
hold 0.8 x # so that rooms are in view
sleep 1.5

look
sleep 0.5
shot now.png
[ "$(pixels_changed last.png now.png)" -eq 0 ] || fail "the picture moves by itself"

hold_changes 300 "X, zooming out" 0.4 x
hold_changes 300 "Z, zooming in" 0.4 z
xdotool mousemove --window "$vorel_window" 200 200
xdotool click 5
expect_change 300 "the wheel turned backward"
xdotool click 4
expect_change 300 "the wheel turned forward"
# A press counts the way from the middle of the window, so it starts there.
eval "$(xdotool getwindowgeometry --shell "$vorel_window")"
# drag BUTTON: to the right, along the corridor, and a little upwards.
drag() {
  xdotool mousemove --window "$vorel_window" $((WIDTH / 2)) $((HEIGHT / 2))
  xdotool mousedown "$1"
  sleep 0.2
  for _ in 1 2 3 4 5; do
    xdotool mousemove_relative -- 20 -8
    sleep 0.1
  done
  xdotool mouseup "$1"
}
drag 1
expect_change 300 "the left button, moving"
hold_changes 300 "Ctrl and Up, tilting" 0.3 Control_L Up
hold_changes 300 "Ctrl and Right, turning" 0.3 Control_L Right
hold_changes 300 "G, the grid" 0.4 g
hold_changes 300 "P, plain lines" 0.4 p
hold_changes 300 "P again, antialiased lines" 0.4 p
hold_changes 300 "G again, no grid" 0.4 g

drag 3
expect_change 300 "the right button, turning"

# A quarter turn later the corridor leads up the screen.
hold 2 Control_L Down # back to the view from above
hold 2 Left           # and to the corridor's start
sleep 1.5
look
for key in d a Right Left d; do
  hold_changes 300 "$key, along the corridor" 0.5 $key
done
hold_changes 300 "Ctrl and Left, turning" 0.2 Control_L Left
hold 0.58 Control_L Left
sleep 1
look
for key in w s Up Down; do
  hold_changes 300 "$key, along the corridor after a quarter turn" 0.5 $key
done
quit_cleanly
