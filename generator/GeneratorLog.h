#ifndef GENERATOR_GENERATORLOG_H
#define GENERATOR_GENERATORLOG_H

#include <QtilitiesLogging/Logger.h>

/// What the generator window writes to the host's log.
namespace GeneratorLog {

/// Logs \p text as the window's, as a priority message.
void write(Qtilities::Logging::Logger::MessageType type, const QString& text);

} // namespace GeneratorLog

#endif
