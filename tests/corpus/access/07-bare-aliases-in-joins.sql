SELECT a.[Account No], b.BranchName, c.CardNo
FROM (Accounts a LEFT JOIN Branches b ON a.BranchID = b.BranchID) RIGHT JOIN Cards c ON a.AccountID = c.AccountID
WHERE c.[Valid Till] >= #1/1/2007#;
