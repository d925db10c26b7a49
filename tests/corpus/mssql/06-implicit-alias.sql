SELECT e.FirstName + ' ' + e.LastName AS FullName
FROM Employees e
WHERE e.HireDate >= '1/1/1993'
