# Each way of drawing by its key; held keys while they are held.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start
ladder
push 300 "X" 0.8 x
push 300 "Ctrl and Up" 0.4 Control_L Up
cp last.ppm lines.ppm
press 300 "H, the gantry" h
press 300 "H again, balls and sticks" h
press 0 "L, a light" l
press 0 "L again, no light" l
press 300 "V, the landscape" v
for mode in 0 1 2 3 4 5; do
  press 300 "M to kind $mode" m
done
cp last.ppm landscape.ppm
hold 0.4 h # has no effect on the landscape
rest
expect_same landscape.ppm "H changes the landscape"
press 300 "V again" v
expect_same lines.ppm "V again does not lead back to lines"
for key in f j; do
  press 20 "$key held" $key
  expect_same lines.ppm "$key acts after its release"
done
quit_cleanly
