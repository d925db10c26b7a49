SELECT e.StaffNo, e.[Monthly Pay], (SELECT Max(p.PaidOn) FROM tblPayment AS p WHERE p.StaffNo = e.StaffNo) AS LastPaid
FROM tblStaff AS e
WHERE e.[Monthly Pay] > (SELECT Avg(f.[Monthly Pay]) FROM tblStaff AS f WHERE f.DeptID = e.DeptID) * 1.25
AND e.DeptID IN (SELECT DeptID FROM tblDept WHERE Closed = False) AND e.HiredOn < #1/1/1995#;
