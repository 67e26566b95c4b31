#pragma once

/// Trigonometry for the recorded match, from the four operations and the square root alone: those
/// are exact to the last bit everywhere, the C library's functions are not. Degrees throughout.

/// The same direction in -180 (inclusive) to 180.
[[nodiscard]] double Normalised(double degrees);
[[nodiscard]] double Sine(double degrees);
[[nodiscard]] double Cosine(double degrees);
/// The direction of (x, y), -180 to 180; 0 for the origin.
[[nodiscard]] double Direction(double y, double x);
