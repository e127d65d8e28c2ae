# The window keeps to the desktop and the picture to the window. A minimised window uses no processor
# time and returns with neither key nor button held. A fullscreen one minimises for another window.
. "$(dirname "$0")/lib.sh"
desktop_start
xdotool mousemove 640 955
vorel_start

# "auto" in a window is 0.6 of the screen's height, at 4:3.
eval "$(xdotool getwindowgeometry --shell "$vorel_window")"
[ "$WIDTH $HEIGHT" = "768 576" ] || fail "the window is $WIDTH by $HEIGHT"
eval "$(xdotool mousemove --window "$vorel_window" 0 0 getmouselocation --shell)"
[ $((Y + HEIGHT)) -le 960 ] || fail "the window ends below the screen, at $((Y + HEIGHT))"

ladder
push 300 "X" 0.8 x # the start of the ladder is in the middle, and submazes to the right of it
xdotool windowsize --sync "$vorel_window" 1000 500
wait_still
lit=$(convert last.ppm -crop 300x500+700+0 -colorspace gray -threshold 10% \
  -format '%[fx:round(mean*100)]' info:)
[ "$lit" -ge 2 ] || fail "the picture does not fill the resized window"

# processor_time: of the program, in hundredths of a second.
processor_time() {
  awk '{ print $14 + $15 }' "/proc/$vorel_job/stat"
}

cp last.ppm before.ppm
xdotool mousemove --window "$vorel_window" 500 250 keydown alt mousedown 1 sleep 0.3 \
  mousemove_relative -- -25 -15 sleep 0.3 mousemove_relative -- -25 -10 sleep 0.5 mouseup 1 keyup alt
wait_still
expect_same before.ppm "moving the window steers" 1000
xdotool mousedown 1 sleep 0.5
# F shows the area that can be reached.
xdotool keydown f windowminimize --sync "$vorel_window" keyup f mouseup 1 sleep 1
vorel_running || fail "ended when minimised"
before=$(processor_time)
sleep 3
[ $(($(processor_time) - before)) -lt 6 ] || fail "busy while minimised"
vorel_return
xdotool mousemove_relative -- 90 0
wait_still
expect_same before.ppm "a key or a button stays held" 1000
quit_cleanly

# A size that is no mode of the display is a part of the screen.
printf 'Windowed: N\nResolution: 800x600\n' >config.txt
vorel_start
eval "$(xdotool getwindowgeometry --shell "$vorel_window")"
[ "$X $Y $WIDTH $HEIGHT" = "0 0 800 600" ] || fail "the window is $WIDTH by $HEIGHT at $X, $Y"
wait_still
cp last.ppm before.ppm
display -size 200x200 xc:red & # another program
other=$!
desktop_wait "the window to minimise" vorel_minimised
xdotool mousemove 700 100 sleep 0.5
[[ $(xdotool getmouselocation) = "x:700 y:100 "* ]] || fail "the mouse is held"
kill "$other"
vorel_return
wait_still
expect_same before.ppm "the way of the mouse was taken for steering" 1000
xdotool mousemove_relative -- 90 0
expect_change 300 "the mouse after the return"
quit_cleanly
