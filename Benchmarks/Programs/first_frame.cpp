#include <Benchmarks/AlertScene.h>

int main() {
    zr::AlertScene scene;
    scene.show(false);
    return scene.host.framesComposed() > 0 ? 0 : 1;
}
