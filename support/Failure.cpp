// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Failure.h"

#include <exception>
#include <new>
#include <system_error>

namespace ardeno {

Failure::Failure(QString domain, int code, QString description)
    : m_domain(std::move(domain)), m_code(code), m_description(std::move(description)), m_what(m_description.toUtf8())
{
}

Failure Failure::system(int errorNumber)
{
    return {"POSIX", errorNumber, QString::fromStdString(std::generic_category().message(errorNumber)) + '.'};
}

Failure Failure::system(int errorNumber, const QString &fileName)
{
    return {"POSIX", errorNumber, u"“%1”: %2"_qs.arg(fileName, system(errorNumber).description())};
}

Failure Failure::current()
{
    try {
        throw;
    } catch (const Failure &failure) {
        return failure;
    } catch (const std::bad_alloc &) {
        return system(ENOMEM);
    } catch (const std::exception &exception) {
        return {"Exception", 1,
                u"%1 (%2)."_qs.arg(QString("The program met an error it did not expect"),
                                   QString::fromLocal8Bit(exception.what()))};
    } catch (...) {
        return {"Exception", 2, "The program met an error it did not expect."};
    }
}

} // namespace ardeno
