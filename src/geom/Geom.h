#pragma once

/// The geometry's face: vectors, hit tests, polygons and their files, profiles, the approach distance.

#include "Approach.h"
#include "HitTest.h"
#include "Polygon.h"
#include "PolygonFile.h"
#include "Vector.h"
