#include "views/theme/Fonts.h"

#include <QFontDatabase>

namespace noonward {

void registerFonts() {
    for (const char* file : {"300Light", "400Regular", "500Medium", "600SemiBold", "700Bold"}) {
        QFontDatabase::addApplicationFont(
            QStringLiteral(":/noonward/fonts/HankenGrotesk_%1.ttf").arg(QLatin1String(file)));
    }
}

}  // namespace noonward
