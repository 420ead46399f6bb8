// The connection points of a session. Through them, the program's sinks get the terminal's events with wrapped
// responses.
#pragma once

#include <ocidl.h>
#include <ole2.h>
#include <windows.h>

namespace wendrill::recorder {

class Wrapper;

// WrappedPoint forwards FindConnectionPoint to `real`, the container of the terminal's session, and WrappedPoints
// forwards EnumConnectionPoints. Both replace the connection points that they return by wrappers.
HRESULT WrappedPoint(Wrapper& session, IConnectionPointContainer* real, REFIID wanted, IConnectionPoint** point);
HRESULT WrappedPoints(Wrapper& session, IConnectionPointContainer* real, IEnumConnectionPoints** points);

}  // namespace wendrill::recorder
