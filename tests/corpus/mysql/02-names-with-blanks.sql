SELECT `Order Details`.`Unit Price` AS `Unit Price`, `Order Details`.Quantity, `Product Name`
FROM `Order Details` INNER JOIN `Product List` ON `Order Details`.`Product ID` = `Product List`.`Product ID`
WHERE `Order Details`.Discount > 0
LIMIT 10, 25
