SELECT City FROM Customers WHERE Country = 'UK' UNION SELECT City FROM Employees WHERE Country = 'UK' ORDER BY City
