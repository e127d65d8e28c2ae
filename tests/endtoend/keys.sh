# Each key that draws or makes mazes in another way reaches the program: one press changes the picture
# once, and some keys act only while they are held.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start
ladder
press 2000 "Shift and N, a patchwork," Shift_L n
ladder
push 2000 "the way into the first submaze" 1.5 Right
push 500 "R" 1 r
push 500 "E" 0.3 e
press 500 "N" n
ladder
push 300 "X" 0.8 x # submazes too
push 300 "Ctrl and Up" 0.4 Control_L Up
cp last.ppm lines.ppm
for key in f j; do
  press 20 "$key" $key
  expect_same lines.ppm "$key acts after its release"
done
press 300 "G, the grid" g # blue and green, which the ladder lacks
press 300 "P, plain lines" p
press 300 "H, the gantry" h
press 300 "H again, balls and sticks" h
press 10 "L, a light" l
press 300 "V, the landscape" v
press 300 "M, its first mode" m
press 300 "Space, the help" space
for mode in 1 2 3; do
  press 300 "F3 to mode $mode" F3
done
press 100 "F4, the eyes swapped" F4
press 20 "F5, less depth" F5
press 20 "F6, more depth" F6

# The lines of mode 3 keep to the rows of the screen when the window is moved.
eval "$(xdotool getwindowgeometry --shell "$vorel_window")"
xdotool windowmove --sync "$vorel_window" "$X" $((Y + 40))
wait_still
cp last.ppm even.ppm
for down in 41 42; do
  xdotool windowmove "$vorel_window" "$X" $((Y + down))
  expect_change 300 "a move by one row"
  wait_still
done
expect_same even.ppm "a move by two rows changes the picture"
quit_cleanly
lines config.txt | grep -q '): 3$' || fail "the mode was not saved"
