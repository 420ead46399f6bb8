// Clients in several apartments at once.
#pragma once

namespace wendrill::soak {

// Three single-threaded apartments and the multithreaded one, each with objects of its own, go through so many rounds
// at once, while the calling thread, a single-threaded apartment, lets its messages run. True when every call answered
// as meant and nothing was left behind.
bool RunApartments(int rounds);

}  // namespace wendrill::soak
