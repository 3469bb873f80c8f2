// A library that is no plugin.
extern "C" __attribute__((visibility("default"))) int SomethingElse() { return 1; }
