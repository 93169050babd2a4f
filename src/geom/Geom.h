#pragma once

/// The geometry's face: vectors, hit tests, polygons, profiles, the approach distance.

#include "geom/Approach.h"
#include "geom/CPolygon.h"
#include "geom/HitTest.h"
#include "geom/Vector.h"
