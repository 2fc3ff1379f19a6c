#include "App.h"

int main(int argc, char** argv) { return zr::UIApplicationMain<App>(argc, argv); }
