-- A small database, for SQLite, from which a catalog can be made.
CREATE TABLE Customers (
    ID INTEGER PRIMARY KEY,
    Company VARCHAR(80) NOT NULL COLLATE NOCASE,
    Discount DECIMAL(5,2)
);
CREATE TABLE Orders (
    ID INTEGER PRIMARY KEY,
    CustomerID INTEGER NOT NULL REFERENCES Customers (ID),
    Due DATE,
    Amount MONEY
);
CREATE INDEX OrdersByDue ON Orders (Due);
CREATE VIEW LargeOrders AS SELECT Orders.ID, Orders.Due FROM Orders WHERE Orders.Amount > 1000;
