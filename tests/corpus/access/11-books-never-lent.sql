SELECT DISTINCTROW tblBook.[Shelf Mark], tblBook.Title, Year([Bought On]) AS BoughtIn
FROM tblBook
WHERE (((tblBook.BookID) Not In (SELECT tblLoan.BookID FROM tblLoan WHERE tblLoan.LentOn > #12/31/1998#)) AND ((tblBook.Price)>=24.5))
ORDER BY Year([Bought On]) DESC, tblBook.Title;
