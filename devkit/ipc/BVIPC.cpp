// The product links a library of this name and calls nothing of it. The one symbol shows in a
// debugger which library was loaded.
extern "C" __attribute__((visibility("default"))) const char BVIPCVersionString[];
const char BVIPCVersionString[] = "BVIPC (development kit) 1";
