# The overlays: Space leads from the prompt to the help, the statistics, nothing and back. What the
# statistics tell is what the session holds that is saved a moment later.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start
ladder

look
lit() { # WxH+X+Y: how many pixels of the window's part are lit
  convert last.png -crop "$1" -colorspace gray -threshold 30% -format '%[fx:round(mean*w*h)]' info:
}
[ "$(lit 200x14+0+0)" -gt 200 ] || fail "no prompt at the start"
[ "$(lit 400x180+0+14)" -eq 0 ] || fail "more than the prompt at the start"
hold_changes 2000 "Space, the help" 0.4 space
[ "$(lit 400x14+0+182)" -gt 200 ] || fail "the help has no fourteenth line"
hold 1.2 Right # to the first room, and back to the start: a node to count
hold 3 Left
hold 0.4 space
sleep 1.5 # until the camera rests
look
width=$(identify -format %w last.png)
[ "$(lit 300x14+$((width - 300))+26)" -gt 200 ] || fail "no field of view at the right"
[ "$(lit 300x14+$((width - 300))+0)" -gt 30 ] || fail "no frame rate at the right"
convert last.png statistics.ppm
hold 0.4 space
sleep 0.5
look
[ "$(lit 300x180+0+0)" -eq 0 ] || fail "texts in the state without any"
hold 0.4 space
sleep 0.5
look
[ "$(lit 200x14+0+0)" -gt 200 ] || fail "no prompt after the fourth Space"
quit_cleanly
"$VOREL_CHECK" statistics.ppm maze_save.dat || fail "the statistics are not the session's"
