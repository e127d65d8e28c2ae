#pragma once

// The names of all attachments (see maze/attachment.h), and what makes them stale. A new plot adds
// its names here. The statistics page shows them.

inline constexpr const char *attachment_line_lists = "lists"; // drawing of the line plot
inline constexpr const char *attachment_balls = "ballstick_ballslist";
inline constexpr const char *attachment_sticks = "ballstick_stickslist";
inline constexpr const char *attachment_cells = "voronoi"; // corners of the Voronoi cells
inline constexpr const char *attachment_cell_list = "voronoilist";
inline constexpr const char *attachment_gantry = "gantrylist";
inline constexpr const char *attachment_edge_angles = "EdgeAngleRecs";

// A step within a maze drops this from the maze.
inline constexpr const char *attachment_stale_after_step = attachment_line_lists;

// A step from one maze to another drops these. Each group goes from the maze left, then from the
// maze entered; null ends a group.
inline constexpr const char *attachments_stale_after_crossing[][2] = {
    {attachment_line_lists, nullptr},
    {attachment_balls, attachment_sticks},
    {attachment_cell_list, nullptr},
    {attachment_gantry, nullptr},
};

// Moving nodes drops all of them.
inline constexpr const char *attachments_stale_after_move[] = {
    attachment_line_lists, attachment_balls,  attachment_sticks,      attachment_cells,
    attachment_cell_list,  attachment_gantry, attachment_edge_angles,
};
