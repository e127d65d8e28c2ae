#pragma once

// The names of all attachments (see maze/attachment.h), and what makes them stale. A new plot adds
// its names here. The statistics page shows them.

constexpr const char *attachment_lists = "lists"; // drawing of the line plot
constexpr const char *attachment_balls = "ballstick_ballslist";
constexpr const char *attachment_sticks = "ballstick_stickslist";
constexpr const char *attachment_cells = "voronoi"; // corners of the Voronoi cells
constexpr const char *attachment_cell_list = "voronoilist";
constexpr const char *attachment_gantry = "gantrylist";
constexpr const char *attachment_edge_angles = "EdgeAngleRecs";

// A step within a maze drops this from the maze.
constexpr const char *attachment_stale_after_step = attachment_lists;

// A step from one maze to another drops these. Each group goes from the maze left, then from the
// maze entered; null ends a group.
constexpr const char *attachments_stale_after_crossing[][2] = {
    {attachment_lists, nullptr},
    {attachment_balls, attachment_sticks},
    {attachment_cell_list, nullptr},
    {attachment_gantry, nullptr},
};

// A Roamer's step touches these where it arrives and where its edge is drawn, and drops nothing.
constexpr const char *attachments_with_roamers[] = {attachment_lists, attachment_cell_list};

// Moving nodes drops all of them.
constexpr const char *attachments_stale_after_move[] = {
    attachment_lists,     attachment_balls,  attachment_sticks,      attachment_cells,
    attachment_cell_list, attachment_gantry, attachment_edge_angles,
};
