# The session is there again at the next start, the settings document themselves, and no file is
# lost: not a damaged one, not an unreadable one, and not the old one when the disk is full.
. "$(dirname "$0")/lib.sh"
desktop_start

# said WORDS: the program's one sentence has them.
said() {
  [ "$(grep -c '^vorel: ' vorel.err)" -eq 1 ] || fail "$(wc -l <vorel.err) sentences"
  grep -q "$1" vorel.err || fail "no word of '$1'"
}

end_run() {
  leave q
  [ "$vorel_status" -eq 0 ] || fail "status $vorel_status"
}

vorel_start
cat >expected.txt <<'TEXT'
Windowed (Y/N): Y
Resolution (XxY, 'auto', 'span', 'display N' or 'span N,M...'): auto
Stereo mode (0=none,1=top/bottom,2=side-by-side,3=interlace,4=two screen SBS,5=two screen vertical,6-8=coloured): 0
Swap stereo (Y/N): N
Stereo Depth: 0.05
TEXT
on_windows && sed -i 's/$/\r/' expected.txt
cmp config.txt expected.txt || fail "the first run's settings are not complete"
# To the first room and back to the start, where a push against the end leaves one on the node. The
# rooms are out of sight: their corridors come back wider.
ladder
push 300 "the way to the first room" 1.2 Right
hold 3 Left
rest
push 100 "Z" 0.2 z
cp last.ppm first.ppm
end_run
cmp config.txt expected.txt || fail "the end changed the settings"
[ "$(ls -A)" = "$(printf 'config.txt\nexpected.txt\nfirst.ppm\nfont_fmod.dat\nlast.ppm\nmaze_save.dat\nnow.ppm\nvorel.err\nvorel.out')" ] ||
  fail "other files than the program's are there: $(ls -A)"

printf 'Colour: red\r\n' >>config.txt
sed -i 's/^Windowed.*/Windowed: t/' config.txt
vorel_start
rest
expect_same first.ppm "the session did not come back" 1000
cp maze_save.dat first.dat
quit_cleanly
cmp -s maze_save.dat first.dat && fail "the clock stands in the second save"
[ "$(stat -c %s maze_save.dat)" -eq "$(stat -c %s first.dat)" ] || fail "another tree was saved"
vorel_start
rest
expect_same first.ppm "it did not come back twice" 1000
quit_cleanly
lines config.txt | grep -qx 'Colour: red' || fail "an unknown setting was lost"
lines config.txt | grep -qx 'Windowed: t' || fail "a shortened setting was lost"

truncate -s -1 maze_save.dat
cp maze_save.dat damaged.dat
vorel_start
said "maze_save.damaged-1.dat"
cmp damaged.dat maze_save.damaged-1.dat || fail "the damaged session was changed"
ladder
end_run

# A session of 10,000 nodes of which the disk has five bytes.
sparse_session() {
  printf '\1\20\47\0\0' >maze_save.dat
  truncate -s 530162 maze_save.dat
  vorel_start
  said "damaged"
  ladder
  end_run
}
on_windows || sparse_session # not a sparse file there

# A file may have 64 KiB here, and the ladder needs more.
full_disk() {
  cp maze_save.dat whole.dat
  printf '#!/bin/sh\nulimit -f 128\nexec "%s"\n' "$VOREL" >limited
  chmod +x limited
  VOREL=./limited vorel_start
  leave q
  [ "$vorel_status" -eq 1 ] || fail "status $vorel_status without a place for the session"
  said "could not be saved"
  cmp maze_save.dat whole.dat || fail "a failed save changed the old session"
}
on_windows || full_disk # the emulator itself does not survive it

mkdir kept && mv config.txt maze_save.dat kept && mkdir config.txt
vorel_start
end_run
said "config.txt.* left alone"
rmdir config.txt
rm maze_save.dat && mkdir maze_save.dat
vorel_start
end_run
[ -s maze_save.beside-1.dat ] || fail "a session beside a folder in its place was not saved"
grep -q "maze_save.dat.*can't be read" vorel.err || fail "no word of the folder"
if ! on_windows; then # a sentence must not go into the connection to the display
  printf '#!/bin/sh\nexec "%s" 2>&-\n' "$VOREL" >mute
  chmod +x mute
  VOREL=./mute vorel_start
  end_run
  [ -s maze_save.beside-2.dat ] || fail "no session without a standard error"
fi
rmdir maze_save.dat

# The font file is used as it stands, drawn anew where it is missing, and never written over.
cp font_fmod.dat font.dat
truncate -s 1000 font_fmod.dat
cp font_fmod.dat short.dat
vorel_start
quit_cleanly
cmp font_fmod.dat short.dat || fail "a short font file was written over"
rm font_fmod.dat
vorel_start
quit_cleanly
cmp font_fmod.dat font.dat || fail "the font file drawn anew is another one"
rm font_fmod.dat
for make in mkdir touch 'ln -s /proc/self/mem'; do # the last can be opened and not read
  $make font_fmod.dat
  vorel_start
  end_run
  said 'font_fmod.dat" \(can.t be read\|is empty\)'
  [ ! -f font_fmod.dat ] || [ ! -s font_fmod.dat ] || fail "the font file was written over"
  rm -r font_fmod.dat
done

for resolution in 800X600 -5x-5 'span 2'; do
  status=0
  printf 'Resolution: %s\n' "$resolution" >config.txt
  timeout 30 "$VOREL" >vorel.out 2>vorel.err || status=$?
  [ $status -eq 1 ] || fail "status $status at $resolution"
  said "no window"
done
