// Angles between the items of a globe map, the coding file of the zone near a pivot, and the
// comparison of two angle files.
#pragma once

#include "core/contexte.hpp"

namespace telvoris {

// The inverse cosine by the rule of the angle files: 0 at 1, pi at -1, otherwise
// 2 atan(1) + atan(-x / sqrt(1 - x²)). x is first brought into [-1, 1].
double ArcCosinus(double x);
// The angle in degrees between two points of the globe given in degrees.
double Angle(double longitude1, double latitude1, double longitude2, double latitude2);

void OperationAngulationP3(Contexte& ctx);        // smn_angP3
void OperationZoneAngulation(Contexte& ctx);      // smn_zag
void OperationComparerAngulations(Contexte& ctx); // smn_cpag

}  // namespace telvoris
