#include "platform/RuntimeError.h"

RuntimeError::RuntimeError(int number, const QString& description)
    : m_number(number), m_description(description),
      m_what(QByteArray::number(number) + ": " + description.toUtf8())
{
}
