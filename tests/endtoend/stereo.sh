# The stereo modes by their keys, and what they leave in the settings.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start
ladder
hold 0.8 x
hold 0.5 Control_L Up
hold 0.4 g # blue and green, which the ladder has not
sleep 1.5
look
cp last.png mono.png
# Each mode is another picture than the one before, and F4 and F6 change each.
for mode in 1 2 3 4 5 6 7 8; do
  hold_changes 300 "F3 to mode $mode" 0.4 F3
  hold_changes 100 "F4 in mode $mode" 0.4 F4
  hold_changes 100 "F4 again in mode $mode" 0.4 F4
done
hold_changes 100 "F6, more depth" 0.4 F6
hold_changes 100 "F5, less depth" 0.4 F5
hold 0.4 F3
sleep 0.5
shot now.png
[ "$(pixels_changed mono.png now.png)" -eq 0 ] || fail "the ninth F3 does not lead back to one eye"

# The lines of mode 3 keep to the rows of the screen when the window is moved.
for _ in 1 2 3; do hold 0.4 F3 && sleep 0.3; done
sleep 0.5
look
eval "$(xdotool getwindowgeometry --shell "$vorel_window")"
moved() {
  xdotool windowmove "$vorel_window" "$1" "$2"
  sleep 0.5
  shot now.png
  pixels_changed last.png now.png
}
even=$(moved "$X" $((Y + 40)))
odd=$(moved "$X" $((Y + 41)))
[ "$((even < odd ? even : odd))" -eq 0 ] || fail "the lines change in both places: $even and $odd pixels"
[ "$((even < odd ? odd : even))" -gt 300 ] || fail "the lines move with the window"
hold 0.4 F4
for _ in 1 2; do sleep 0.3 && hold 0.4 F6; done
quit_cleanly
lines config.txt | grep -q '): 3$' || fail "the mode was not kept"
lines config.txt | grep -qx 'Swap stereo (Y/N): Y' || fail "the swap was not kept"
lines config.txt | grep -qx 'Stereo Depth: 0.06' || fail "the depth was not kept: $(grep Depth config.txt)"

sed -i 's/): 3\r\?$/): 12/' config.txt
vorel_start
shot now.png
lit_below_the_prompt() {
  convert now.png -crop 2000x2000+0+20 -colorspace gray -threshold 10% \
    -format '%[fx:round(mean*w*h)]' info:
}
[ "$(lit_below_the_prompt)" -eq 0 ] || fail "a mode beyond the last draws"
hold 0.4 F3
sleep 0.5
shot now.png
[ "$(lit_below_the_prompt)" -gt 200 ] || fail "F3 does not bring the picture back"
quit_cleanly
