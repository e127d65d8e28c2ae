#pragma once

#include <cstdint>

#include "support/list.h"
#include "support/vec3.h"

// A maze is an undirected graph of at most degree 8 whose nodes have places in one world
// coordinate system. A node may hold a whole further maze, its submaze; the mazes form a tree, and
// every level has absolute world coordinates. What holds in a well-formed tree:
//   - b stands in the rows of a exactly once if and only if a stands in the rows of b exactly once,
//     and no node is joined to itself;
//   - nodes[i].submaze = m if and only if m's parent is this maze and m's parentnode is i;
//   - a node that holds a submaze is a container and not a place: no Pos in use names it;
//   - a submaze has at least as many nodes as its holder has rows, and its node j is the door
//     towards row j of the holder. The record of that edge is the holder's row j.

constexpr uint32_t MAZE_MAX_DEGREE = 8;
constexpr uint32_t maze_default_colour = 0x808080;
constexpr double never = -1.0; // a time that has not come

// One row of a node's edge table, and a node's record of itself.
struct MazeEdge {
  uint32_t colour;   // 0xRRGGBB
  double usertime;   // session clock when the user last crossed (or arrived); negative: never
  double roamertime; // the same for a Roamer
};

constexpr MazeEdge maze_edge_default = {maze_default_colour, never, never};

struct Maze;

struct MazeNode {
  double x, y, z;                 // world units; z is height
  uint32_t degree;                // used rows of nbr and edge
  int32_t nbr[MAZE_MAX_DEGREE];   // indices in this same maze; packed, in no particular order
  MazeEdge edge[MAZE_MAX_DEGREE]; // row i belongs to the edge towards nbr[i]
  MazeEdge self;                  // the node's own colour and times
  Maze *submaze;                  // owned; null for a plain node
};

struct Maze {
  GrowList nodes;       // of MazeNode
  Maze *parent;         // one level up, not owned; null at the root
  int32_t parentnode;   // the node of the parent that holds this maze; 0 at the root
  int32_t visited;      // nodes of this maze that the user has arrived at
  uint32_t bordermask;  // bit i: the user has crossed the border along row i of the holder
  char *name;           // owned level label such as "1.01.03"; null if it has none
  double halfwidth;     // half a corridor's width in world units
  GrowList attachments; // of Attachment; derived data, never saved
  uint64_t serial;      // number of this record in order of creation: a total order of mazes
  Maze *pool_next;      // chain of destroyed records, see Maze_destroy
};

// One place in the whole tree. Compare the fields, never the bytes: the record has padding.
struct Pos {
  Maze *maze;
  int32_t node;
};

constexpr Pos Pos_null = {nullptr, 0};

constexpr bool Pos_equal(Pos a, Pos b) {
  return a.maze == b.maze && a.node == b.node;
}

// Whether `a` comes first of the two ends of an edge. An edge is drawn from that end only, so that
// it is drawn once, across levels too. Places order by their mazes' age, then by index; a null `b`
// is never the later end.
inline bool Pos_before(Pos a, Pos b) {
  if (b.maze == nullptr) return false;
  if (a.maze != b.maze) return a.maze->serial < b.maze->serial;
  return a.node < b.node;
}

inline MazeNode *maze_nodes(Maze *maze) {
  return rows<MazeNode>(maze->nodes);
}
inline const MazeNode *maze_nodes(const Maze *maze) {
  return rows<MazeNode>(maze->nodes);
}
inline int32_t maze_count(const Maze *maze) {
  return static_cast<int32_t>(maze->nodes.count);
}
constexpr Vec3 node_position(const MazeNode &node) {
  return {node.x, node.y, node.z};
}

// A new maze without nodes, attachments, parent or name; halfwidth 0.5. Owned by the caller until
// a node holds it.
Maze *Maze_new();

// Sets place, degree 0, default colour, times of never and no submaze; leaves the tables alone.
void MazeNode_init(MazeNode *node, double x, double y, double z);

// Releases what the maze owns, and with `recursive` first all mazes below it. The small record
// itself stays reachable in a pool and is never reused. The holder's submaze field is not touched.
// Destructors of attachments run after the nodes are gone.
void Maze_destroy(Maze *maze, int32_t recursive);

// A copy without attachments. With `recursive` the mazes below are copied too; without, the copy
// shares the submazes and must not be destroyed recursively while the source lives.
Maze *Maze_copy(const Maze *maze, int32_t recursive);

// Appends recursive copies of the nodes of `b`, another maze, their rows raised by a's node count.
// No edge joins the two halves.
void Maze_append(Maze *a, const Maze *b);

// The same behind a recursive copy of `a`.
Maze *Maze_merged(const Maze *a, const Maze *b);
