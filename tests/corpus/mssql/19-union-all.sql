SELECT CompanyName, City, 'customer' AS Kind FROM Customers
UNION ALL
SELECT CompanyName, City, 'supplier' FROM Suppliers
UNION ALL
SELECT FirstName + ' ' + LastName, City, 'employee' FROM Employees
