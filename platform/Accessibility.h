#pragma once

/// Tells tools that read the screen what the toolkit does not: the image cells with their names and picture numbers,
/// and what can be pressed, under the rules of the screens. Once, at start.
void DescribeScreensToTools();
