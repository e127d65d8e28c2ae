# What only the Windows program does: it shows sentences in a box if there is no standard error, it
# runs in folders with any name, its files are those of the other systems, and a fullscreen window
# leaves the system its keys.
. "$(dirname "$0")/lib.sh"
desktop_start

boxes() {
  xdotool search --onlyvisible --name '^Vorel$' 2>/dev/null
}

box_shown() {
  box=$(boxes | head -n 1)
  [ -n "$box" ]
}

box_gone() {
  ! boxes | grep -qx "$box"
}

# answer KEY: waits for a box and presses the key until the box is gone. A space acts when it is
# released.
answer() {
  desktop_wait "a box" box_shown
  xdotool windowactivate --sync "$box"
  desktop_wait "the box to go" answered "$1"
}

answered() {
  hold 0.3 "$1"
  for _ in {1..20}; do
    ! box_gone || return 0
    sleep 0.1
  done
  return 1
}

# start_without_streams FOLDER: starts the program in a folder, without standard streams.
start_without_streams() {
  # shellcheck disable=SC2016
  bash -c 'cd "$0" && exec "$@"' "$1" "$VOREL_WITHOUT_STREAMS" "$VOREL_EXE" >vorel.out 2>vorel.err &
  vorel_job=$!
}

window_takes_keys() {
  desktop_wait "the window of vorel" vorel_window_found
  desktop_wait "the keyboard" vorel_has_keyboard
}

# The settings can't be written, in a folder whose name is beyond ASCII. The Escape that answers is
# not one that quits.
folder="Зоя Müller"
mkdir "$folder"
printf 'Windowed: Y\r\n' >"$folder/config.txt"
chmod a-w "$folder/config.txt"
start_without_streams "$folder"
answer Escape
window_takes_keys
ladder
hold 1 Right
leave q
[ "$vorel_status" -eq 0 ] || fail "status $vorel_status"
cd "$folder"
[ "$(lines config.txt)" = "Windowed: Y" ] || fail "a read-only file was changed"
[ -s maze_save.dat ] && [ -s font_fmod.dat ] || fail "no files in a folder with such a name"
chmod u+w config.txt

# Nothing can be written at all: settings, font and session each get a box.
start_without_streams /sys
answer Return
answer space
window_takes_keys
hold 0.5 Right
xdotool keydown q
desktop_wait "a box" box_shown
xdotool keyup q
answer Return
vorel_wait_end
[ "$vorel_status" -eq 0 ] || fail "status $vorel_status where nothing can be written"

# tree FILE: the session without what the clock and the camera change.
tree() {
  head -c -144 "$1"
}

# There and back between the systems.
mv maze_save.dat saved.dat
for program in "$VOREL_NATIVE" "$VOREL" "$VOREL_NATIVE"; do
  cp saved.dat maze_save.dat
  mv font_fmod.dat font.dat
  VOREL=$program vorel_start
  quit_cleanly
  ! cmp -s saved.dat maze_save.dat || fail "nothing was saved by $program" # the clock goes on
  cmp <(tree saved.dat) <(tree maze_save.dat) || fail "another session from $program"
  cmp font.dat font_fmod.dat || fail "another font from $program"
  mv maze_save.dat saved.dat
done

# All of the screen, on which neither Alt+Space nor F10 opens a menu that stops the frames, and from
# which Alt+Tab leads away.
mkdir full && cd full
printf 'Windowed: N\r\n' >config.txt
vorel_start
eval "$(xdotool getwindowgeometry --shell "$vorel_window")"
[ "$X $Y $WIDTH $HEIGHT" = "0 0 1280 960" ] || fail "the window is $WIDTH by $HEIGHT at $X, $Y"
ladder
hold 0.5 Alt_L space
hold 0.5 F10
push 1000 "zooming out after Alt+Space and F10" 0.5 x
xdotool keydown Alt_L keydown Tab
desktop_wait "the window to go" vorel_minimised
xdotool keyup Tab keyup Alt_L
vorel_return
quit_cleanly
