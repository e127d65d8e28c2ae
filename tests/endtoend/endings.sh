# Q, Escape, the window's close and the signals that ask a program to end, or the end of the user's
# session, all end the program in the same way. Any other end leaves a recovery file.
. "$(dirname "$0")/lib.sh"
desktop_start

close_by() {
  case $1 in
    q | Escape) leave "$1" ;;
    window) wmctrl -i -c "$vorel_window" && vorel_wait_end ;;
    session) timeout 20 wineboot -e && vorel_wait_end ;;
    *) kill -"$1" "$vorel_job" && vorel_wait_end ;;
  esac
}

ways="q Escape window TERM INT HUP QUIT"
on_windows && ways="q Escape window session" # there are no polite signals
for way in $ways; do
  rm -f maze_save.dat
  vorel_start
  close_by $way
  [ -s maze_save.dat ] || fail "no session after $way"
  [ "$vorel_status" -eq 0 ] || fail "status $vorel_status after $way"
  [ ! -s vorel.out ] || fail "standard output after $way: $(cat vorel.out)"
  [ ! -s vorel.err ] || fail "standard error after $way: $(cat vorel.err)"
done

recovered() {
  [ -s maze_save.recovery.dat ]
}

# resumed WAY: starts again, and quits as usual.
resumed() {
  vorel_start
  grep -q 'ended without saving' vorel.err || fail "nothing was resumed after $1"
  leave q
  ! recovered || fail "the recovery file stays after a usual end"
}

rm maze_save.dat
vorel_start
ladder # which is written at once
desktop_wait "the recovery file" recovered
kill -KILL "$vorel_job"
vorel_wait_end
[ ! -e maze_save.dat ] || fail "a killed program saved its session"
resumed "a kill"
on_windows && exit
vorel_start
wait_still
push 300 "a step" 1.2 Right # which is not written at once
xdotool windowkill "$vorel_window"
vorel_wait_end
[ "$vorel_status" -eq 1 ] || fail "status $vorel_status after the loss of the display"
resumed "the loss of the display"

# A program whose folder is gone saves elsewhere.
mkdir gone && cd gone
vorel_start
rm -r ../gone
leave q
cd ..
[ -s data/vorel/maze_save.beside-1.dat ] || fail "nothing was saved outside a folder that is gone"
[ "$vorel_status" -eq 0 ] || fail "status $vorel_status after saving elsewhere"
