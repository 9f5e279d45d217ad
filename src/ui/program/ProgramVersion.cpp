#include "ProgramVersion.h"

namespace vtr {

QString ShortVersionText() {
    return QStringLiteral("%1.%2").arg(VTR_VERSION_MAJOR).arg(VTR_VERSION_MINOR);
}

QString FullVersionText() {
    return ShortVersionText() + QStringLiteral(".%1").arg(VTR_VERSION_REVISION);
}

}  // namespace vtr
