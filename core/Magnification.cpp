#include "core/Magnification.h"

#include "core/Capitalised.h"

namespace quillary {

std::string title(Magnification magnification) {
    return capitalised(rawValue(magnification));
}

double amount(Magnification magnification) {
    switch (magnification) {
    case Magnification::off:
        return 0.0;
    case Magnification::subtle:
        return 0.35;
    case Magnification::big:
        return 0.8;
    }
    return 0.0;
}

} // namespace quillary
