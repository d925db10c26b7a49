SELECT [Voucher No], Amount FROM tblVoucher WHERE Amount >= [Forms].[frmPeriod].[txtLimit] ORDER BY Amount DESC;
