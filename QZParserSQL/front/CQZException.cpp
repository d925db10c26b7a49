#include "QZParserSQL/front/CQZException.h"

#include <utility>

CQZException::~CQZException() = default;

CQZParseSQLException::CQZParseSQLException() = default;
CQZParseSQLException::CQZParseSQLException(int nNumber) : m_nCode(-1), m_nNumber(nNumber) {}
CQZParseSQLException::CQZParseSQLException(CString strError, unsigned nCode)
    : m_nCode(static_cast<int>(nCode)), m_strError(std::move(strError)) {}
CQZParseSQLException::CQZParseSQLException(const CQZParseSQLException& other) = default;
CQZParseSQLException& CQZParseSQLException::operator=(const CQZParseSQLException& other) = default;
CQZParseSQLException::~CQZParseSQLException() = default;

void CQZParseSQLException::DoMessageBox(HWND hWnd) {
    const CString strVersion;
    const CString strErrMessage;
    MessageBoxW(hWnd, strErrMessage, strVersion, MB_ICONERROR);
}

int CQZParseSQLException::GetErrNumber() { return m_nNumber; }
int CQZParseSQLException::GetErrCode() { return m_nCode; }
CString CQZParseSQLException::GetErrString() { return m_strError; }
CString CQZParseSQLException::GetErrMessage() { return {}; }
