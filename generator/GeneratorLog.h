#ifndef GENERATOR_GENERATORLOG_H
#define GENERATOR_GENERATORLOG_H

#include <QtilitiesLogging/Logger.h>

/// Writes to the host's log in the name of the generator window.
namespace GeneratorLog {

/// Logs \p text as a priority message.
void write(Qtilities::Logging::Logger::MessageType type, const QString& text);

} // namespace GeneratorLog

#endif
