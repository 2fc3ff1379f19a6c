#include <Gallery/Icons/Icons.h>

#include <ZRPlatform/UIKit/Images/UIImage.h>

#include <cstdio>
#include <fstream>
#include <string>

using namespace zr;

namespace {

/// NAME.png, NAME@2x.png and NAME@3x.png; false when one cannot be written.
bool writeIcon(const icons::Icon& icon, const std::string& folder) {
    for (const int scale : {1, 2, 3}) {
        icons::Pen pen(icon.width, icon.height, scale);
        icon.draw(pen);
        const auto bytes = UIImagePNGRepresentation(UIImage::imageWithCGImage(pen.image()));
        const std::string suffix = scale == 1 ? "" : "@" + std::to_string(scale) + "x";
        const std::string path = folder + "/" + icon.name + suffix + ".png";
        std::ofstream file(path, std::ios::binary);
        file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        file.close();
        if (bytes.empty() || !file) {
            std::fprintf(stderr, "zr_icons: %s cannot be written\n", path.c_str());
            return false;
        }
        std::printf("%s\n", path.c_str());
    }
    return true;
}

} // namespace

/// Draws the gallery's pictures. They are kept in the sources, so this runs only when a drawing changes.
int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: zr_icons FOLDER\n");
        return 2;
    }
    for (const icons::Icon& icon : icons::allIcons()) {
        if (!writeIcon(icon, argv[1]))
            return 1;
    }
    return 0;
}
