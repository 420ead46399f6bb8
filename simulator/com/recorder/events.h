// The connection points of a session. Through these connection points, the program's sinks get the terminal's events
// with wrapped responses.
#pragma once

#include <ocidl.h>
#include <ole2.h>
#include <windows.h>

namespace wendrill::recorder {

class Wrapper;

// WrappedPoint forwards FindConnectionPoint to `real`, the container of the terminal's session. WrappedPoints forwards
// EnumConnectionPoints to `real`. Both functions return wrappers in place of the terminal's connection points.
HRESULT WrappedPoint(Wrapper& session, IConnectionPointContainer* real, REFIID wanted, IConnectionPoint** point);
HRESULT WrappedPoints(Wrapper& session, IConnectionPointContainer* real, IEnumConnectionPoints** points);

}  // namespace wendrill::recorder
