SELECT DISTINCTROW TOP 10 PERCENT Customers.[Company Name], Orders.[Due Date] AS Due, Sum([Unit Price]*Quantity) AS Total
FROM (Customers INNER JOIN Orders ON Customers.ID = Orders.CustomerID) LEFT JOIN Lines ON Orders.ID = Lines.OrderID
WHERE Orders.[Due Date] < #1/2/2020# AND (Orders.Paid = False OR Left$(Customers.Code, 2) IN ('DE', 'FR'))
GROUP BY Customers.[Company Name], Orders.[Due Date]
HAVING Sum([Unit Price]*Quantity) > 100.5
ORDER BY Sum([Unit Price]*Quantity) DESC;
