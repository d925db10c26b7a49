SELECT [dbo].fnTotal(o.OrderID) AS Total, fnTax(o.OrderID, 2) AS Tax, dbo.fnDue(o.OrderID) AS Due FROM Orders AS o
