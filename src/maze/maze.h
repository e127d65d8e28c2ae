#pragma once

#include <cstdint>

#include "support/list.h"
#include "support/vec3.h"

// A maze is an undirected graph with at most 8 edges per node. A node may hold another maze, its
// submaze, so mazes form a tree. All levels use the same world coordinates. In a well-formed tree:
//   - if a has a slot for b, it has one only, and b has one for a; no node is joined to itself;
//   - nodes[i].submaze = m if and only if m's parent is this maze and m's parentnode is i;
//   - a node with a submaze (a holder) is not a place: no Pos in use refers to it;
//   - a submaze has at least as many nodes as its holder has slots. Its node j is the door to the
//     neighbour in slot j of the holder, and that slot is the record of the edge.

constexpr uint32_t MAZE_MAX_DEGREE = 8;
constexpr uint32_t maze_default_colour = 0x808080;
constexpr double time_never = -1.0;

// One half of an edge, kept at one of its ends; also a node's record of itself.
struct MazeEdge {
  uint32_t colour;   // 0xRRGGBB
  double usertime;   // session clock at the user's last crossing or arrival; negative: never
  double roamertime; // the same for Roamers
};

constexpr MazeEdge maze_edge_default = {maze_default_colour, time_never, time_never};

struct Maze;
struct NodeBlock;

struct MazeNode {
  double x, y, z;                 // world units; z is height
  uint32_t degree;                // slots in use: entries of nbr and edge
  int32_t nbr[MAZE_MAX_DEGREE];   // indices of neighbours in the same maze, in no particular order
  MazeEdge edge[MAZE_MAX_DEGREE]; // edge[i] leads to nbr[i]
  MazeEdge self;                  // the node's own colour and times
  Maze *submaze;                  // owned; null for a plain node
};

struct Maze {
  GrowList nodes;       // of MazeNode
  Maze *parent;         // one level up, not owned; null at the root
  int32_t parentnode;   // the node of the parent that holds this maze; 0 at the root
  int32_t visited;      // nodes of this maze that the user has arrived at
  uint32_t bordermask;  // bit i: the user has crossed the border along slot i of the holder
  char *name;           // owned level label such as "1.01.03"; may be null
  double halfwidth;     // half a corridor's width in world units
  GrowList attachments; // of Attachment; derived data, never saved
  NodeBlock *block;     // memory that loaded nodes share, see maze/node_block.h; or null
  uint64_t serial;      // counts the records created; orders mazes by age
  Maze *pool_next;      // chain of destroyed records, see maze/lifetime.h
};

// A node of any maze in the tree. Compare fields, not bytes: the record has padding.
struct Pos {
  Maze *maze;
  int32_t node;
};

constexpr Pos Pos_null = {nullptr, 0};

constexpr bool Pos_equal(Pos a, Pos b) {
  return a.maze == b.maze && a.node == b.node;
}

// Whether `a` is the first end of an edge: the one in the older maze, or with the smaller index.
// Each edge is drawn from its first end only. False if `b` is null.
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
