#pragma once

/// The two directions of a plot; usable as bits of a mask (horzDir | vertDir is both).
enum TAxisDir { horzDir = 1, vertDir = 2 };

constexpr int cBothDirs = horzDir | vertDir;
