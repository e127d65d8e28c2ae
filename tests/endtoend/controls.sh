# Each way of steering changes the picture in its direction, and nothing else does.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start
ladder
push 300 "X, zooming out" 0.8 x
cp last.ppm far.ppm

# corridor: how many pixels the bright corridor at the start takes.
corridor() {
  convert last.ppm -crop +0+20 +repage -channel R -separate -threshold 75% \
    -format '%[fx:round(mean*w*h)]' info:
}

sleep 1
wait_still
expect_same far.ppm "the picture moves by itself"
far=$(corridor)
push 300 "Z, zooming in" 0.4 z
near=$(corridor)
[ "$near" -gt "$far" ] || fail "Z zooms out"
xdotool mousemove --window "$vorel_window" 200 200 click 5
expect_change 300 "the wheel"
wait_still
[ "$(corridor)" -lt "$near" ] || fail "the wheel turned backward zooms in"
# To the left for longer than to the right: a busy machine holds a key too long, and the walker would
# reach a dead end from which no key leads on.
for key in d a Right Left d; do
  case $key in a | Left) seconds=1.5 ;; *) seconds=0.4 ;; esac
  push 300 "$key, along the corridor" $seconds $key
done

# drag BUTTON: from the middle of the window back along the corridor and a little upwards, again until
# the picture changes: an emulated desktop can lose the press.
eval "$(xdotool getwindowgeometry --shell "$vorel_window")"
drag() {
  button=$1
  desktop_wait "button $button to move the picture" dragged
  wait_still
}
dragged() {
  xdotool mousemove --window "$vorel_window" $((WIDTH / 2)) $((HEIGHT / 2)) mousedown "$button"
  for _ in 1 2 3 4 5; do xdotool mousemove_relative -- -20 -8 sleep 0.1; done
  xdotool mouseup "$button"
  picture_differs 300
}
drag 1
push 300 "Ctrl and Up, tilting" 0.3 Control_L Up
push 300 "right Ctrl and Right, turning" 0.3 Control_R Right
drag 3
quit_cleanly
