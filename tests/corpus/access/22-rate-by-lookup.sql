SELECT i.InvoiceNo, Format$(i.[Billed On], "mmm yyyy") AS Period, DLookUp("[Rate]", "tblTaxRate", "[Country]='" & i.Country & "'") AS TaxRate, DCount("*", "tblReminder", "InvoiceNo=" & i.InvoiceNo) AS Reminders
FROM tblInvoice AS i
WHERE i.[Billed On] >= #1/1/2004# And IsNull(i.PaidOn);
