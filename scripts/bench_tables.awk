# Formats the figures of scripts/bench as text, or with -v style=markdown for the README. Reads lines
# of "NAME/WHO,MILLISECONDS[,BYTES]", then tab-separated rows of what to show, the part of the name
# before the slash, peer, ours, minimum, "yes" for the README, and for growth the unit of time.

BEGIN {
  title["reference"] = "reference implementation"
  title["boost_kruskal"] = "Boost.Graph Kruskal"
  title["boost_prim"] = "Boost.Graph Prim"
  title["boost_polygon"] = "Boost.Polygon"
  title["bare"] = "bare program"
  title["list"] = "one display list"
  title["plain"] = "plain reads and writes"
  title["igraph"] = "igraph"
  title["none"] = "without them"
  size_count = split("100 316 1000 3000", sizes, " ")
}

FS == "," {
  time[$1] = $2
  bytes[$1] = $3
  next
}

$7 != "" {
  growth_what[++growths] = $1
  growth_line[growths] = growth_cells($2, $7)
  next
}

{
  peer = $2 "/" $3
  ours = $2 "/" $4
  if (!(peer in time) || !(ours in time)) next
  ratio = time[peer] / time[ours]
  if (style != "markdown") print_row($1, title[$3], ratio, $5)
  else if ($6 == "yes") add_line($1, title[$3], ratio)
}

END {
  if (style == "markdown") print_lines()
  print_growth()
}

function print_row(what, who, ratio, min) {
  if (!rows++) {
    print "CPU time of all threads, of saving the elapsed time; medians of 9 runs that take turns"
    printf "%-48s %-24s %13s %13s %8s %10s\n", "", "peer", "its time", "vorel's", "ratio", "at least  "
  }
  printf "%-48s %-24s %10.3f ms %10.3f ms %8.2f %10s\n", what, who, time[peer], time[ours], ratio,
    min == "" ? "" : min (ratio < min ? " no" : "   ")
}

function add_line(what, who, ratio) {
  if (!(what in peers)) order[++lines] = what
  else who = peers[what] "; " who
  peers[what] = who
  ratios[what] = ratios[what] (what in ratios && ratios[what] != "" ? "; " : "") short(ratio)
}

function short(ratio) {
  return sprintf(ratio < 0.995 ? "%.2f" : ratio < 9.95 ? "%.1f" : "%.0f", ratio)
}

# What two rows of the same kind have in common: all up to a colon.
function kind(what) {
  return index(what, ": ") ? substr(what, 1, index(what, ": ") - 1) : what
}

function print_lines(   i, what, text, values) {
  print "\n| What | Compared with | Ratio |\n|---|---|---|"
  for (i = 1; i <= lines; i++) {
    what = text = order[i]
    values = ratios[what]
    for (; i < lines && kind(order[i + 1]) == kind(what) && peers[order[i + 1]] == peers[what]; i++) {
      text = text "; " substr(order[i + 1], length(kind(what)) + 3)
      values = values "; " ratios[order[i + 1]]
    }
    print "| " text " | " peers[what] " | " values " |"
  }
}

function growth_cells(name, unit,   i, side, key, cell, text) {
  for (i = 1; i <= size_count; i++) {
    side = sizes[i]
    key = name "/" side
    text = text (style == "markdown" ? " | " : "")
    cell = "-"
    if (key in time)
      cell = sprintf(unit == "ns" ? "%.0f ns, %.0f B" : "%.1f ms, %.0f B",
                     unit == "ns" ? time[key] * 1e6 / side / side : time[key], bytes[key] / side / side)
    text = text sprintf(style == "markdown" ? "%s" : "%18s", cell)
    if (key in time) measured = 1
  }
  return text
}

function print_growth(   i) {
  if (!measured) return
  if (style == "markdown") {
    print "\n| A plane of | 100 by 100 | 316 by 316 | 1000 by 1000 | 3000 by 3000 |\n|---|---|---|---|---|"
    for (i = 1; i <= growths; i++) print "| " growth_what[i] growth_line[i] " |"
    print ""
    return
  }
  print "\nGrowth: CPU time, and the peak growth of resident memory for each node"
  printf "%-24s", "a plane of side"
  for (i = 1; i <= size_count; i++) printf "%18s", sizes[i]
  print ""
  for (i = 1; i <= growths; i++) printf "%-24s%s\n", growth_what[i], growth_line[i]
}
