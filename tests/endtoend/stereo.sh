# The stereo modes by their keys, and what they leave in the settings.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start
ladder
push 300 "X" 0.8 x
push 300 "Ctrl and Up" 0.5 Control_L Up
press 300 "G" g # blue and green, which the ladder lacks
cp last.ppm mono.ppm
# Each mode is another picture than the one before, and F4 and F6 change each.
for mode in 1 2 3 4 5 6 7 8; do
  press 300 "F3 to mode $mode" F3
  press 100 "F4 in mode $mode" F4
done
press 100 "F6, more depth" F6
press 100 "F5, less depth" F5
press 300 "F3 to one eye" F3
expect_same mono.ppm "the ninth F3 does not lead back to one eye"

# The lines of mode 3 keep to the rows of the screen when the window is moved.
for mode in 1 2 3; do press 300 "F3 to mode $mode" F3; done
eval "$(xdotool getwindowgeometry --shell "$vorel_window")"
moved() {
  xdotool windowmove "$vorel_window" "$1" "$2"
  sleep 1
  shot now.ppm
  pixels_changed last.ppm now.ppm
}
even=$(moved "$X" $((Y + 40)))
odd=$(moved "$X" $((Y + 41)))
[ "$((even < odd ? even : odd))" -eq 0 ] || fail "the lines change in both places: $even and $odd pixels"
[ "$((even < odd ? odd : even))" -gt 300 ] || fail "the lines move with the window"
rest
press 100 "F4" F4
for _ in 1 2; do press 20 "F6" F6; done
quit_cleanly
lines config.txt | grep -q '): 3$' || fail "the mode was not kept"
lines config.txt | grep -qx 'Swap stereo (Y/N): Y' || fail "the swap was not kept"
lines config.txt | grep -qx 'Stereo Depth: 0.06' || fail "the depth was not kept: $(grep Depth config.txt)"

