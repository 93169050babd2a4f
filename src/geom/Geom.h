#pragma once

/// The geometry's face: vectors, hit tests, polygons and their files, profiles, the approach distance.

#include "formats/PolygonFile.h"
#include "geom/Approach.h"
#include "geom/CPolygon.h"
#include "geom/HitTest.h"
#include "geom/Vector.h"
