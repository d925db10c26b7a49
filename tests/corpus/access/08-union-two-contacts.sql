SELECT [Supplier Name] AS Party, Phone, "S" AS Kind FROM tblSupplier WHERE Phone Is Not Null
UNION
SELECT [Client Name], Phone, "C" FROM tblClient WHERE Phone Is Not Null AND Left$(Phone, 1) = "+"
ORDER BY 1;
