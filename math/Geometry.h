#pragma once

/// The source unit Geometry, the numeric floor of the player: numbers, angles in degrees, places,
/// and the shapes of plane and space. Include this header for any of it.
///
/// Numbers and angles are told here and in Geometry.cpp. Each class of the unit has a pair of files
/// of its own, for all of them in one would be more than a reader can hold:
///   VecPosition                     points and vectors
///   Circle, Line, Rect              the plane of the field
///   Plane, Line3                    space

#include "math/Circle.h"
#include "math/Line.h"
#include "math/Line3.h"
#include "math/Plane.h"
#include "math/Rect.h"
#include "math/VecPosition.h"

/// The one tolerance of the geometry code: a value counts as zero when its absolute value is
/// strictly smaller.
inline constexpr double EPSILON = 0.0001;
inline constexpr double PI = 3.141592653589793;

/// 1 above zero, otherwise -1: there is no zero result.
int sign(double d);
double max(double a, double b);
double min(double a, double b);

double Rad2Deg(double x);
double Deg2Rad(double x);

double sinDeg(double x);
double cosDeg(double x);
double tanDeg(double x);
/// 90 from 1 on, -90 down from -1: no domain error can arise. [deg]
double asinDeg(double x);
/// 0 from 1 on, 180 down from -1. [deg]
double acosDeg(double x);
double atanDeg(double x);
/// -180 to 180 [deg]; 0 when both arguments are next to nothing.
double atan2Deg(double y, double x);

/// Angles in degrees. A plain interval leaves its bounds out, one that wraps through 0 (or has
/// equal bounds) takes them in.
bool isAngInInterval(double ang, double minAng, double maxAng);
/// The smaller way round between two angles of -180 to 180. [deg]
double getAngleDifference(double a1, double a2);
/// The angle half-way; 0 for opposite angles, which have none here. [deg]
double getBisectorTwoAngles(double a1, double a2);

/// x + 0.5 cut towards zero: not the nearest integer for a negative x.
int Round(double x);

/// Seeds the C library's generator with the calendar time.
void Randomize();
/// 0 to 1 from the C library's generator.
double drand();
int Random(int n);
int Random(int a, int b);
