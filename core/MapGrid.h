#pragma once

// The view that both editors have of their map: a grid of picture cells, which count from 0 down each column first.

inline constexpr int ViewColumns = 18;
inline constexpr int ViewRows = 15;
inline constexpr int ViewCells = ViewColumns * ViewRows;

// In screen pixels.
inline constexpr int CellSize = 32;
inline constexpr int CellPitch = 34;  ///< from one cell to the next
inline constexpr int GridWidth = ViewColumns * CellPitch - (CellPitch - CellSize);
inline constexpr int GridHeight = ViewRows * CellPitch - (CellPitch - CellSize);

// Columns and rows of the view, from 0.
[[nodiscard]] constexpr int CellIndex(int column, int row) { return column * ViewRows + row; }
[[nodiscard]] constexpr int CellColumn(int index) { return index / ViewRows; }
[[nodiscard]] constexpr int CellRow(int index) { return index % ViewRows; }
