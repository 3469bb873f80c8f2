// A plugin whose entry leads nowhere.
extern "C" __attribute__((visibility("default"))) const void* GetTZPlugIn;
const void* GetTZPlugIn = nullptr;
