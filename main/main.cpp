#include "app/AppDelegate.h"
#include "app/wording/LinuxWording.h"

int main() {
    return 0;
}
