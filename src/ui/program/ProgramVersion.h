#pragma once

#include <QString>

namespace vtr {

inline const QString programTitle = QStringLiteral("VTR Target Editor");
/// "0.5"
QString ShortVersionText();
/// "0.5.0"
QString FullVersionText();

}  // namespace vtr
