# The overlays: Space leads from the prompt to the help, the statistics, nothing and back.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start
ladder

# page LEAST WHAT: the next page, which need not rest: the frame rate changes.
page() {
  xdotool keydown space
  expect_change "$1" "Space, $2,"
  xdotool keyup space
  mv now.ppm last.ppm
}
# lit WxH+X+Y: how many pixels of a part of the window are bright.
lit() {
  convert last.ppm -crop "$1" -colorspace gray -threshold 30% -format '%[fx:round(mean*w*h)]' info:
}
[ "$(lit 200x14+0+0)" -gt 200 ] || fail "no prompt at the start"
page 2000 "the help"
[ "$(lit 400x14+0+182)" -gt 200 ] || fail "the help has no fourteenth line"
page 2000 "the statistics"
[ "$(lit 300x14+468+26)" -gt 200 ] || fail "no field of view at the right"
page 1000 "no texts"
[ "$(lit 300x180+0+0)" -eq 0 ] || fail "texts in the state without any"
page 200 "the prompt"
[ "$(lit 200x14+0+0)" -gt 200 ] || fail "no prompt after the fourth Space"
quit_cleanly
