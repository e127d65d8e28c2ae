# The picture follows the window's size, and a minimised window comes back.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start

# "auto" in a window is 0.6 of the screen's height, at 4:3.
eval "$(xdotool getwindowgeometry --shell "$vorel_window")"
[ "$WIDTH $HEIGHT" = "768 576" ] || fail "the window is $WIDTH by $HEIGHT"

# ink FILE: percent of the pixels that show something.
ink() {
  convert "$1" -colorspace gray -threshold 10% -format '%[fx:round(mean*100)]' info:
}

ladder
hold 0.8 x # the start of the ladder stands in the middle, and rooms to the right of it
xdotool windowsize --sync "$vorel_window" 1000 500
sleep 1
shot wide.png
[ "$(identify -format '%wx%h' wide.png)" = 1000x500 ] || fail "the window did not take its new size"
convert wide.png -gravity East -crop 300x500+0+0 +repage right.png
[ "$(ink right.png)" -ge 2 ] || fail "the picture does not fill the resized window"

xdotool windowminimize --sync "$vorel_window"
sleep 1
vorel_running || fail "ended when minimised"
wmctrl -i -a "$vorel_window"
desktop_wait "the window's return" vorel_has_keyboard
sleep 1
shot back.png
[ "$(pixels_changed wide.png back.png)" -lt 1000 ] || fail "another picture after the return"
quit_cleanly
