# The session is there again at the next start, the settings document themselves, and no file is
# lost: not a damaged one, not an unreadable one, and not the old one when the disk is full.
. "$(dirname "$0")/lib.sh"
desktop_start

# expect_sentence PATTERN: the program wrote one sentence, which matches.
expect_sentence() {
  [ "$(grep -c '^vorel: ' vorel.err)" -eq 1 ] || fail "$(wc -l <vorel.err) sentences"
  grep -q "$1" vorel.err || fail "'$1' is not in the error"
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
# To the first submaze and back to the start, where the corridor ends: only the node is saved, not the
# way from it. No submaze is in the picture, since corridors in them come back wider.
ladder
push 300 "the way to the first submaze" 1.2 Right
xdotool keydown Left
expect_change 300 "the way back"
wait_still
xdotool keyup Left
push 100 "Z" 0.2 z
cp last.ppm first.ppm
end_run
cmp config.txt expected.txt || fail "the end changed the settings"
[ "$(ls -A)" = "$(printf 'config.txt\nexpected.txt\nfirst.ppm\nfont_fmod.dat\nlast.ppm\nmaze_save.dat\nnow.ppm\nvorel.err\nvorel.out')" ] ||
  fail "other files than the program's are there: $(ls -A)"

vorel_start
wait_still
expect_same first.ppm "the session did not come back" 1000
quit_cleanly

truncate -s -1 maze_save.dat
cp maze_save.dat damaged.dat
vorel_start
expect_sentence "maze_save.damaged-1.dat"
cmp damaged.dat maze_save.damaged-1.dat || fail "the damaged session was changed"
ladder
end_run

# A session of 10,000 nodes of which the disk has five bytes.
sparse_session() {
  printf '\1\20\47\0\0' >maze_save.dat
  truncate -s 530162 maze_save.dat
  vorel_start
  expect_sentence "damaged"
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
  expect_sentence "could not be saved"
  cmp maze_save.dat whole.dat || fail "a failed save changed the old session"
}
on_windows || full_disk # the emulator itself does not survive it

mkdir kept && mv config.txt maze_save.dat kept && mkdir config.txt
vorel_start
end_run
expect_sentence "config.txt.* left alone"
rmdir config.txt
if ! on_windows; then # a sentence must not go into the connection to the display
  printf '#!/bin/sh\nexec "%s" 2>&-\n' "$VOREL" >mute
  chmod +x mute
  rm maze_save.dat
  VOREL=./mute vorel_start
  end_run
  [ -s maze_save.dat ] || fail "no session without a standard error"
fi

# The font file is used as it is, written if it is missing, and never replaced.
cp font_fmod.dat font.dat
truncate -s 1000 font_fmod.dat
cp font_fmod.dat short.dat
vorel_start
quit_cleanly
cmp font_fmod.dat short.dat || fail "a short font file was replaced"
rm font_fmod.dat
vorel_start
quit_cleanly
cmp font_fmod.dat font.dat || fail "the font file was written differently"
rm font_fmod.dat
for make in mkdir touch 'ln -s /proc/self/mem'; do # the last can be opened and not read
  $make font_fmod.dat
  vorel_start
  end_run
  expect_sentence 'font_fmod.dat" \(can.t be read\|is empty\)'
  [ ! -f font_fmod.dat ] || [ ! -s font_fmod.dat ] || fail "the font file was replaced"
  rm -r font_fmod.dat
done

for resolution in 800X600 -5x-5 'span 2'; do
  status=0
  printf 'Resolution: %s\n' "$resolution" >config.txt
  timeout 30 "$VOREL" >vorel.out 2>vorel.err || status=$?
  [ $status -eq 1 ] || fail "status $status at $resolution"
  expect_sentence "no window"
done
