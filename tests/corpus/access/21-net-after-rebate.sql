SELECT InvoiceNo, Nz([Rebate],0) AS Rebate0, RoundTo([Gross]-Nz([Rebate],0), 2) AS Net, NextWorkday([Billed On], 14) AS DueOn, IIf(Nz([Paid],0)=0, "open", "part") AS State
FROM tblInvoice
WHERE Nz([Paid],0) < [Gross] - Nz([Rebate],0) AND [Billed On] < #11/30/2004#;
