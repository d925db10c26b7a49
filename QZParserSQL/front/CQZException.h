// The exceptions kept for hosts. The library throws neither: a parse shows its failures in the tree.
#pragma once

#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Export.h"
#include "QZParserSQL/platform/MessageBox.h"

/// The base of what hosts throw.
class CQZException {
 public:
    virtual ~CQZException();

    /// Shows a message box with the error icon over `hWnd`.
    virtual void DoMessageBox(HWND hWnd) = 0;
    /// What the failure is; the meaning is that of the derived class.
    virtual int GetErrNumber() = 0;
    virtual int GetErrCode() = 0;
    virtual CString GetErrString() = 0;
    virtual CString GetErrMessage() = 0;

 protected:
    /// Made and copied as a derived class.
    CQZException() = default;
    CQZException(const CQZException&) = default;
    CQZException& operator=(const CQZException&) = default;
};

/// A parse failure that a host raises itself. What the numbers mean is the host's.
class QZ_API CQZParseSQLException : public CQZException {
 public:
    /// Number and code 0, no text.
    CQZParseSQLException();
    /// A number, with the code -1 and no text.
    CQZParseSQLException(int nNumber);  // NOLINT(google-explicit-constructor)
    /// A text and a code, with the number 0.
    CQZParseSQLException(CString strError, unsigned nCode);
    /// Copies number, code and text.
    CQZParseSQLException(const CQZParseSQLException& other);
    CQZParseSQLException& operator=(const CQZParseSQLException& other);
    ~CQZParseSQLException() override;

    /// The box has an empty text and an empty title.
    void DoMessageBox(HWND hWnd) override;
    /// What the constructor was given.
    int GetErrNumber() override;
    int GetErrCode() override;
    CString GetErrString() override;
    /// Always empty: no message is composed.
    CString GetErrMessage() override;

 private:
    int m_nCode = 0;
    int m_nNumber = 0;
    CString m_strError;
};
