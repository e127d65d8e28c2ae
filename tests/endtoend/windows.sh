# What only the Windows program does: it tells in a box what nobody would read on a standard error, it
# runs in folders with any name, and its files are those of the other systems, byte for byte.
. "$(dirname "$0")/lib.sh"
desktop_start

box_stands() {
  box=$(xdotool search --onlyvisible --name '^Vorel$' 2>/dev/null | head -n 1)
  [ -n "$box" ]
}

# The settings can't be written, in a folder whose name is beyond ASCII.
mkdir "Зоя Müller" && cd "Зоя Müller"
printf 'Windowed: Y\r\n' >config.txt
chmod a-w config.txt
"$VOREL_UNHEARD" "$VOREL_EXE" &
vorel_job=$!
desktop_wait "the box" box_stands
sleep 1
import -window "$box" box.png
xdotool windowactivate --sync "$box" key Return
desktop_wait "the window of vorel" vorel_window_found
desktop_wait "the keyboard" vorel_has_keyboard
ladder
hold 1 Right
leave q
[ "$vorel_status" -eq 0 ] || fail "status $vorel_status"
[ "$(lines config.txt)" = "Windowed: Y" ] || fail "a read-only file was changed"
[ -s maze_save.dat ] && [ -s font_fmod.dat ] || fail "no files in a folder with such a name"
chmod u+w config.txt

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
  cmp <(tree saved.dat) <(tree maze_save.dat) || fail "another session from $program"
  cmp font.dat font_fmod.dat || fail "another font from $program"
  mv maze_save.dat saved.dat
done
