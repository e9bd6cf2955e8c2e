// Usage: answer_box SECONDS: waits for a message box of any program, prints "[title] text" in UTF-8 and
// presses OK. Status 0 when one was answered, 1 when none came in time.
#include <cstdio>
#include <cstdlib>

#include "boxes/message_box.h"
#include "client/com.h"

int main(int argc, char** argv) {
    using namespace tovera::client;
    if (argc != 2) return 2;
    for (int tries = std::atoi(argv[1]) * 20; tries > 0; --tries) {
        if (const HWND box = findMessageBox()) {
            const auto shown = read(box);
            std::printf("[%s] %s\n", utf8(shown.title).c_str(), utf8(shown.text).c_str());
            accept(box);
            return 0;
        }
        Sleep(50);
    }
    return 1;
}
