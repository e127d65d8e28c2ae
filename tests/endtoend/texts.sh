# The overlays: Space leads from the prompt to the help, the statistics, nothing and back.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start
ladder

lit() { # WxH+X+Y: how many pixels of the window's part are lit
  convert last.ppm -crop "$1" -colorspace gray -threshold 30% -format '%[fx:round(mean*w*h)]' info:
}
[ "$(lit 200x14+0+0)" -gt 200 ] || fail "no prompt at the start"
[ "$(lit 400x180+0+14)" -eq 0 ] || fail "more than the prompt at the start"
press 2000 "Space, the help" space
[ "$(lit 400x14+0+182)" -gt 200 ] || fail "the help has no fourteenth line"
xdotool keydown space # and never rests: the frame rate changes
expect_change 2000 "Space again, the statistics"
xdotool keyup space
mv now.ppm last.ppm
width=$(identify -format %w last.ppm)
[ "$(lit 300x14+$((width - 300))+26)" -gt 200 ] || fail "no field of view at the right"
[ "$(lit 300x14+$((width - 300))+0)" -gt 30 ] || fail "no frame rate at the right"
xdotool keydown space
expect_change 1000 "Space, no texts"
xdotool keyup space
rest
[ "$(lit 300x180+0+0)" -eq 0 ] || fail "texts in the state without any"
press 200 "Space, the prompt" space
[ "$(lit 200x14+0+0)" -gt 200 ] || fail "no prompt after the fourth Space"
quit_cleanly
