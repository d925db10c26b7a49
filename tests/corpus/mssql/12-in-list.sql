SELECT CustomerID, City FROM Customers WHERE Country IN ('France', 'Spain', 'Italy') ORDER BY City
