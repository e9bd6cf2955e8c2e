// Prints the times of the component under this system, each against a rival in the same run.
#include "timing.h"

int main() {
    using namespace tovera::client;
    CoInitialize(nullptr);
    measureLateBinding();
    measureFormSaving();
    CoUninitialize();
    return 0;
}
